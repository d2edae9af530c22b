#pragma once

#include <QString>

// Folders of generated pictures to drop on the main window.
namespace samplefolders {

// A handful of photo-like JPEGs and PNGs of different shapes, their names with blanks and
// letters beyond ASCII; the portrait "Château d'Èze.jpg" is stored sideways with an EXIF
// orientation tag. Returns the folder's path.
QString writeGallery(const QString& parent);

// `count` small pictures, enough to keep the progress window up for a while.
QString writeMany(const QString& parent, int count);

}  // namespace samplefolders

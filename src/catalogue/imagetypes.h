#pragma once

#include <QString>

// The type the list shows for a file, by its extension (compared without case; a leading dot is
// passed over): the name of the first known type that lists it, such as "image/jpeg"; empty when
// none does.
QString imageTypeOfExtension(const QString& extension);

// Whether web browsers show a picture in `format`, named as the picture's reader names it from the
// content ("tiff", "ppm"): a browser goes by the bytes, whatever the file's extension says.
bool browsersShow(const QString& format);

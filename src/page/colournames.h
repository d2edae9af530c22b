#pragma once

#include <QStringList>

// The colours a gallery page can use, by their CSS names, in the order the colour popups list
// them: black and white first, then alphabetical, with both the Gray and the Grey spellings.
const QStringList& galleryColourNames();

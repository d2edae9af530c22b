#pragma once

#include <QStringList>

// The colours a gallery page can use, by their CSS names, in the order the colour popups list
// them: black and white first, then alphabetical, with both the Gray and the Grey spellings.
const QStringList& galleryColourNames();
// The list's own spelling of `colour`, matched ignoring case; empty for a colour it does not hold.
QString listedColourName(const QString& colour);

#pragma once

#include <QStringList>

// The gallery page's lines, for the writer to write and the reader to recognise.
namespace pageLayout {

// The fixed blocks of the page, line by line, with the blank lines that follow them.
// From the doctype to the style sheet; the title comes next.
const QStringList& headStart();
// The scripts and the end of the head.
const QStringList& headEnd();
// The carousel's element and the opening of its indicators. Its first line marks a page as
// Velmora's.
const QStringList& carouselOpening();
// The previous and next buttons.
const QStringList& carouselControls();

}  // namespace pageLayout

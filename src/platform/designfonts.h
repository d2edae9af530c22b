#pragma once

class QWidget;

// The font sizes of a window's design count in the design's units, one to a pixel like its
// geometry. Qt reads them as points, which are larger than pixels on most screens outside
// macOS; this turns every explicit size under `window` into pixels, so that text keeps its
// proportion to its control everywhere.
void useDesignFontSizes(QWidget* window);

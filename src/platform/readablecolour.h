#pragma once

#include <QColor>

// The contrast between two colours as the web's accessibility guidelines measure it, from 1 (the
// same) to 21 (black on white).
qreal contrastRatio(const QColor& first, const QColor& second);

// `colour` for text on `background`. A light background keeps it as it is; on a dark one, where
// dark text would be lost, it is mixed with white just until it stands out at least 4.5:1, the
// least that small text needs, so that it keeps its hue.
QColor readableOn(const QColor& colour, const QColor& background);

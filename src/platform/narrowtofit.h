#pragma once

class QLabel;

// Narrows the letters of `label` until each line of its text fits across it, and leaves them as
// they are when the text fits already. The windows were laid out with the Mac's system font; a
// wider font, such as DejaVu Sans, would otherwise cut a text short, or wrap a line onto a row
// that the label has no room for. Call it after each change of the text.
void narrowToFit(QLabel* label);

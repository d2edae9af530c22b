#pragma once

class QLabel;
#include "platform/picture.h"

// Shows `picture` in `well` as an image well does: centred, scaled down to fit when it is larger
// than the well, never scaled up.
void showInImageWell(QLabel* well, const PicturePtr& picture);

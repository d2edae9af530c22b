#pragma once

#include <QCursor>
#include <QIcon>

#include "platform/picture.h"

// The program's own pictures, each loaded from the resources on first use and kept, so that
// every use gives the very same object (the preview tells "no image" by identity with the
// placeholder).
namespace pictures {

PicturePtr paypal();
PicturePtr pebble730();
PicturePtr pebble512();
PicturePtr pebble128();
PicturePtr placeholder();
PicturePtr help();
PicturePtr blue();

// A named picture as a button's icon, drawn from the vector picture at the size and pixel
// density it is shown at.
QIcon iconOf(const PicturePtr& picture);

// The magnifying glass with a plus, over a picture that a click shows larger: drawn from the
// program's own vector picture at `devicePixelRatio`, so that it is sharp on any screen, with
// its hot spot at the lens's centre.
QCursor magnifyLarger(qreal devicePixelRatio);

}  // namespace pictures

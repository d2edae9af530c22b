#include "preview/imagecanvas.h"

ImageCanvas::ImageCanvas(QWidget* parent) : QWidget(parent) {}

void ImageCanvas::bind(const Controls& controls) { controls_ = controls; }

void ImageCanvas::Invalidate() { update(); }

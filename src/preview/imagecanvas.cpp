#include "preview/imagecanvas.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>

#include "app/app.h"
#include "platform/text.h"
#include "preview/infotext.h"
#include "resources/namedpictures.h"

ImageCanvas::ImageCanvas(QWidget* parent)
    : QWidget(parent), backdrop_(pictures::pixmapOf(pictures::hubble())) {}

void ImageCanvas::bind(const Controls& controls) {
    controls_ = controls;
}

void ImageCanvas::Invalidate() {
    if (layoutPending_) return;
    layoutPending_ = true;
    // Queued, because a widget must not resize itself from inside its own paint.
    QMetaObject::invokeMethod(this, &ImageCanvas::layOut, Qt::QueuedConnection);
}

void ImageCanvas::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    Invalidate();
}

void ImageCanvas::layOut() {
    layoutPending_ = false;
    if (!controls_.resizedWidth) return;  // not bound to a window yet

    App* app = App::instance();
    app->op = app->opf.isEmpty() ? pictures::hubble() : Picture::open(app->opf);
    PreviewGeometry geometry;
    QImage picture;
    if (app->op) {
        geometry = previewGeometry(app->op->size(), controls_.RadioButtonWidth->isChecked(),
                                   text::Val(controls_.resizedWidth->text()), app->frameWidth);
        // Even with no room left inside the frame, a file that cannot be decoded is no picture.
        picture =
            decoded_.at(*app->op, geometry.inner.isEmpty() ? QSize(1, 1) : geometry.inner.size());
    }
    if (picture.isNull()) {
        app->op = nullptr;
        shown_.reset();  // the backdrop shows at the canvas's last size
        update();
        return;
    }

    showGuideLine(geometry);
    resize(geometry.previewWidth, geometry.previewHeight);
    shown_ = FramedPicture{geometry, app->bordColor, picture};
    update();

    QImage composed(geometry.previewWidth, geometry.previewHeight, QImage::Format_RGB32);
    if (!composed.isNull()) {
        QPainter painter(&composed);
        draw(painter, *shown_, false);
    }
    app->opSmall = composed;

    infotext::show(controls_.info,
                   app->op == pictures::hubble() ? infotext::start() : infotext::ready());
}

void ImageCanvas::showGuideLine(const PreviewGeometry& geometry) {
    QWidget* line = geometry.widthMode ? controls_.wRect : controls_.hRect;
    QWidget* other = geometry.widthMode ? controls_.hRect : controls_.wRect;
    other->setVisible(false);
    line->setVisible(true);
    if (geometry.widthMode)
        line->resize(geometry.target, line->height());
    else
        line->resize(line->width(), geometry.target);
}

void ImageCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (shown_)
        draw(painter, *shown_, true);
    else
        painter.drawPixmap(0, 0, backdrop_);
}

void ImageCanvas::draw(QPainter& painter, const FramedPicture& framed, bool withOutline) {
    const QRect whole(0, 0, framed.geometry.previewWidth, framed.geometry.previewHeight);
    painter.fillRect(whole, framed.colour);
    if (withOutline) {
        painter.setPen(framed.colour);
        painter.drawRect(whole.adjusted(0, 0, -1, -1));  // one pixel wide, inside the preview
    }
    // The picture was decoded at the inner size, so it lands pixel for pixel.
    if (!framed.geometry.inner.isEmpty())
        painter.drawImage(framed.geometry.inner.topLeft(), framed.picture);
}

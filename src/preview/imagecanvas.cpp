#include "preview/imagecanvas.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>

#include "platform/text.h"
#include "preferences/preferences.h"
#include "preview/infotext.h"
#include "resources/namedpictures.h"

ImageCanvas::ImageCanvas(QWidget* parent) : QWidget(parent) {}

void ImageCanvas::bind(const Controls& controls, const Preferences& preferences) {
    controls_ = controls;
    preferences_ = &preferences;
    connect(&preferences, &Preferences::previewFrameChanged, this, &ImageCanvas::Invalidate);
}

void ImageCanvas::showImage(const QString& path) {
    path_ = path;
    Invalidate();
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
    if (!controls_.previewSizeField) return;  // not bound to a window yet

    picture_ = path_.isEmpty() ? pictures::placeholder() : Picture::open(path_);
    PreviewGeometry geometry;
    QImage picture;
    QRectF at;
    const qreal ratio = devicePixelRatioF();
    QSize device;
    if (picture_) {
        geometry = previewGeometry(picture_->size(), controls_.byWidthButton->isChecked(),
                                   text::leadingNumber(controls_.previewSizeField->text()),
                                   preferences_->frameWidth);
        // Even with no room left inside the frame, a file that cannot be decoded is no picture.
        const QRect inner = geometry.inner.isEmpty() ? QRect(0, 0, 1, 1) : geometry.inner;
        device = (QSizeF(inner.size()) * ratio).toSize();
        const qreal across = device.width() / qreal(inner.width());
        const qreal down = device.height() / qreal(inner.height());
        const QRectF seen =
            QRectF(visibleArea({geometry.previewWidth, geometry.previewHeight}) & inner)
                .translated(-inner.topLeft());
        QRect part =
            QRectF(seen.x() * across, seen.y() * down, seen.width() * across, seen.height() * down)
                .toAlignedRect() &
            QRect(QPoint(0, 0), device);
        if (part.isEmpty()) part = QRect(0, 0, 1, 1);  // none of it shows
        picture = decoded_.at(*picture_, device, part.size() == device ? QRect() : part);
        if (!geometry.inner.isEmpty())
            at = QRectF(inner.x() + part.x() / across, inner.y() + part.y() / down,
                        part.width() / across, part.height() / down);
    }
    if (picture.isNull()) {
        // The placeholder then shows, and the info line says why.
        if (picture_ && picture_->tooLargeToDecode(device))
            infotext::show(controls_.info, infotext::tooLarge(picture_->size()));
        picture_ = nullptr;
        shown_.reset();  // the backdrop shows at the canvas's last size
        update();
        return;
    }

    showGuideLine(geometry);
    resize(geometry.previewWidth, geometry.previewHeight);
    const FramedPreview preview(picture_, geometry, preferences_->frameColour);
    shown_ = Shown{preview, picture, at, ratio};
    framed_ = preview;
    update();

    infotext::show(controls_.info,
                   picture_ == pictures::placeholder() ? infotext::start() : infotext::ready());
}

QRect ImageCanvas::visibleArea(QSize size) const {
    QRect area(QPoint(0, 0), size);
    for (const QWidget* child = this; child->parentWidget() && !child->isWindow();
         child = child->parentWidget()) {
        const QWidget* parent = child->parentWidget();
        area &= QRect(mapFrom(parent, QPoint(0, 0)), parent->size());
    }
    return area;
}

void ImageCanvas::showGuideLine(const PreviewGeometry& geometry) {
    QWidget* line = geometry.widthMode ? controls_.widthGuide : controls_.heightGuide;
    QWidget* other = geometry.widthMode ? controls_.heightGuide : controls_.widthGuide;
    other->setVisible(false);
    line->setVisible(true);
    if (geometry.widthMode)
        line->resize(geometry.target, line->height());
    else
        line->resize(line->width(), geometry.target);
}

void ImageCanvas::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const qreal ratio = devicePixelRatioF();
    if (!shown_) {
        if (const PicturePtr backdrop = pictures::placeholder()) {
            const QSizeF size(backdrop->size());
            painter.drawImage(QRectF(QPointF(0, 0), size),
                              decoded_.at(*backdrop, (size * ratio).toSize()));
        }
        return;
    }
    // Moved to a screen of another pixel density: this paint scales, the next one is sharp.
    if (!qFuzzyCompare(shown_->ratio, ratio)) Invalidate();
    shown_->preview.draw(painter, shown_->picture, shown_->at, true);
}

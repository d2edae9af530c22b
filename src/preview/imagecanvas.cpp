#include "preview/imagecanvas.h"

#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QRadioButton>

#include "platform/text.h"
#include "preferences/preferences.h"
#include "preview/infotext.h"
#include "resources/namedpictures.h"

ImageCanvas::ImageCanvas(QWidget* parent) : QWidget(parent) {
    connect(&decoder_, &PreviewDecoder::decoded, this, &ImageCanvas::takeDecoded);
}

void ImageCanvas::bind(const Controls& controls, const Preferences& preferences) {
    controls_ = controls;
    preferences_ = &preferences;
    connect(&preferences, &Preferences::previewFrameChanged, this, &ImageCanvas::Invalidate);
}

void ImageCanvas::showImage(const QString& path, const QStringList& neighbours) {
    path_ = path;
    neighbours_ = neighbours;
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

    wanted_.reset();
    const PicturePtr picture = path_.isEmpty() ? pictures::placeholder() : Picture::open(path_);
    if (!picture) {
        settle({}, {});
        return;
    }
    const Plan planned = plan(picture);
    if (const QImage pixels = decoded_.find(planned.key); !pixels.isNull()) {
        settle(planned, pixels);
        return;
    }
    wanted_ = planned;
    decoder_.decode({{picture, planned.key, false}});
}

ImageCanvas::Plan ImageCanvas::plan(const PicturePtr& picture) const {
    Plan plan;
    plan.picture = picture;
    plan.geometry = previewGeometry(picture->size(), controls_.byWidthButton->isChecked(),
                                    text::leadingNumber(controls_.previewSizeField->text()),
                                    preferences_->frameWidth);
    plan.ratio = devicePixelRatioF();
    const PreviewGeometry& geometry = plan.geometry;
    // Even with no room left inside the frame, a file that cannot be decoded is no picture.
    const QRect inner = geometry.inner.isEmpty() ? QRect(0, 0, 1, 1) : geometry.inner;
    const QSize device = (QSizeF(inner.size()) * plan.ratio).toSize();
    const qreal across = device.width() / qreal(inner.width());
    const qreal down = device.height() / qreal(inner.height());
    const QRectF seen = QRectF(visibleArea({geometry.previewWidth, geometry.previewHeight}) & inner)
                            .translated(-inner.topLeft());
    QRect part =
        QRectF(seen.x() * across, seen.y() * down, seen.width() * across, seen.height() * down)
            .toAlignedRect() &
        QRect(QPoint(0, 0), device);
    if (part.isEmpty()) part = QRect(0, 0, 1, 1);  // none of it shows
    plan.key = DecodedPreviews::keyOf(*picture, device, part.size() == device ? QRect() : part);
    if (!geometry.inner.isEmpty())
        plan.at = QRectF(inner.x() + part.x() / across, inner.y() + part.y() / down,
                         part.width() / across, part.height() / down);
    return plan;
}

void ImageCanvas::settle(const Plan& plan, const QImage& pixels) {
    if (pixels.isNull()) {
        // The placeholder then shows, and the info line says why.
        if (plan.picture && plan.picture->tooLargeToDecode(plan.key.size))
            infotext::show(controls_.info, infotext::tooLarge(plan.picture->size()));
        picture_ = nullptr;
        shown_.reset();  // the backdrop shows at the canvas's last size
    } else {
        picture_ = plan.picture;
        showGuideLine(plan.geometry);
        resize(plan.geometry.previewWidth, plan.geometry.previewHeight);
        const FramedPreview preview(picture_, plan.geometry, preferences_->frameColour);
        shown_ = Shown{preview, pixels, plan.at, plan.ratio};
        framed_ = preview;
        infotext::show(controls_.info,
                       picture_ == pictures::placeholder() ? infotext::start() : infotext::ready());
    }
    update();
    readAhead();
}

void ImageCanvas::takeDecoded(const PreviewDecoder::Request& request, const QImage& pixels) {
    // A failed decode is not kept: the file may be mended, and the next layout tries again.
    if (wanted_ && request.key == wanted_->key) {
        if (!pixels.isNull()) decoded_.keep(request.key, pixels);
        settle(*std::exchange(wanted_, std::nullopt), pixels);
    } else if (request.readAhead && !pixels.isNull()) {
        decoded_.keep(request.key, pixels, DecodedPreviews::Place::BehindNewest);
    }
    // Anything else is of a selection already left.
}

void ImageCanvas::readAhead() {
    QList<PreviewDecoder::Request> requests;
    // The neighbours are kept together, in their order, as far as they fit beside the shown
    // preview: one read ahead must not push out the other.
    QList<DecodedPreviews::Key> kept;
    for (const QString& path : std::as_const(neighbours_)) {
        const PicturePtr picture = Picture::open(path);
        if (!picture) continue;
        const DecodedPreviews::Key key = plan(picture).key;
        if (!decoded_.roomBesideNewest(kept + QList{key})) continue;
        kept << key;
        if (!decoded_.has(key)) requests.append({picture, key, true});
    }
    decoder_.decode(std::move(requests));
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

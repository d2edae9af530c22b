#pragma once

#include <QColor>
#include <QImage>
#include <QStringList>
#include <QWidget>
#include <optional>

#include "preview/decodedpreviews.h"
#include "preview/framedpreview.h"
#include "preview/previewdecoder.h"
#include "preview/previewgeometry.h"

class Preferences;
class QLabel;
class QLineEdit;
class QRadioButton;

// The preview of the selected image. Each Invalidate() leads to one layout step that loads the
// picture of the image shown (the placeholder when none is), sizes the preview from the size
// field and the mode, and asks for the picture's pixels at that size. They are decoded on a worker
// thread (or found among those decoded lately), and only when they are there does the canvas show
// the guide line of the mode, resize to the preview, keep the framed preview and write the info
// line, all at once; the paint that follows only draws. Until then the previous preview stays,
// which is calmer than a flash of the placeholder between two photos. A file that cannot be
// decoded leaves no picture and changes nothing else: the canvas then shows its backdrop at its
// last size.
//
// The picture is decoded at the device pixels of the screen the canvas is on, and only the part
// of the canvas that the window shows is decoded. Once the image shown is there, its neighbours in
// the list are decoded ahead at the same size, as far as the memory for decoded previews allows.
class ImageCanvas : public QWidget {
    Q_OBJECT
public:
    // The main window's controls that the layout step reads and writes.
    struct Controls {
        QLineEdit* previewSizeField = nullptr;
        QRadioButton* byWidthButton = nullptr;
        QWidget* widthGuide = nullptr;
        QWidget* heightGuide = nullptr;
        QLabel* info = nullptr;
    };

    explicit ImageCanvas(QWidget* parent = nullptr);
    // The controls, and the preferences that give the frame.
    void bind(const Controls& controls, const Preferences& preferences);
    // Asks for a new layout step and repaint at the next turn of the event loop; several calls
    // before then make one step.
    void Invalidate();

    // Previews the image at `path`; an empty path shows the placeholder. The images at
    // `neighbours`, the likeliest next first, are decoded ahead once it shows.
    void showImage(const QString& path, const QStringList& neighbours = {});
    const QString& imagePath() const { return path_; }
    // The picture on show: the placeholder's while no image is shown, none after a file that
    // could not be decoded.
    const PicturePtr& picture() const { return picture_; }
    const FramedPreview& framedPreview() const { return framed_; }
    // Whether the preview of the image shown is still to come: its layout step or its decode.
    bool previewPending() const { return layoutPending_ || wanted_.has_value(); }
    // Whether anything is still to be decoded, for the image shown or ahead.
    bool decoding() const { return previewPending() || !decoder_.idle(); }

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // What the paint draws: the framed preview, and the decoded part of its picture with the
    // place where it goes, for a screen of `ratio` device pixels a point.
    struct Shown {
        FramedPreview preview;
        QImage picture;
        QRectF at;
        qreal ratio = 1.0;
    };

    // A preview worked out from its picture's header: its numbers, the key of the pixels it
    // needs and where they go, for a screen of `ratio` device pixels a point.
    struct Plan {
        PicturePtr picture;
        PreviewGeometry geometry;
        DecodedPreviews::Key key;
        QRectF at;
        qreal ratio = 1.0;
    };

    void layOut();
    Plan plan(const PicturePtr& picture) const;
    // Shows the planned preview with its `pixels`, or no picture when they are null.
    void settle(const Plan& plan, const QImage& pixels);
    void takeDecoded(const PreviewDecoder::Request& request, const QImage& pixels);
    void readAhead();
    void showGuideLine(const PreviewGeometry& geometry);
    // The part of a canvas of `size`, in its own points, that lies inside the window.
    QRect visibleArea(QSize size) const;

    Controls controls_;
    const Preferences* preferences_ = nullptr;
    QString path_;
    QStringList neighbours_;
    PicturePtr picture_;
    FramedPreview framed_;
    DecodedPreviews decoded_;
    // Empty before the first layout and after a picture that could not be loaded.
    std::optional<Shown> shown_;
    // The preview whose pixels are being decoded, to show when they come.
    std::optional<Plan> wanted_;
    bool layoutPending_ = false;
    PreviewDecoder decoder_;
};

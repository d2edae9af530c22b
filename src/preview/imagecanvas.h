#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>
#include <optional>

#include "preview/decodedpreviews.h"
#include "preview/framedpreview.h"
#include "preview/previewgeometry.h"

class Preferences;
class QLabel;
class QLineEdit;
class QRadioButton;

// The preview of the selected image. Each Invalidate() leads to one layout step that loads the
// picture of the image shown (the placeholder when none is), sizes the preview from the size
// field and the mode, shows the guide line of the mode, resizes the canvas to the preview, keeps
// the framed preview and writes the info line; the paint that follows only draws. A file that
// cannot be decoded leaves no picture and changes nothing else: the canvas then shows its
// backdrop at its last size.
//
// The picture is decoded at the device pixels of the screen the canvas is on, and only the part
// of the canvas that the window shows is decoded.
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

    // Previews the image at `path`; an empty path shows the placeholder.
    void showImage(const QString& path);
    const QString& imagePath() const { return path_; }
    // The picture on show: the placeholder's while no image is shown, none after a file that
    // could not be decoded.
    const PicturePtr& picture() const { return picture_; }
    const FramedPreview& framedPreview() const { return framed_; }

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

    void layOut();
    void showGuideLine(const PreviewGeometry& geometry);
    // The part of a canvas of `size`, in its own points, that lies inside the window.
    QRect visibleArea(QSize size) const;

    Controls controls_;
    const Preferences* preferences_ = nullptr;
    QString path_;
    PicturePtr picture_;
    FramedPreview framed_;
    DecodedPreviews decoded_;
    // Empty before the first layout and after a picture that could not be loaded.
    std::optional<Shown> shown_;
    bool layoutPending_ = false;
};

#pragma once

#include <QColor>
#include <QImage>
#include <QPixmap>
#include <QWidget>
#include <optional>

#include "preview/decodedpreviews.h"
#include "preview/previewgeometry.h"

class QLabel;
class QLineEdit;
class QRadioButton;

// The preview of the selected image. Each Invalidate() leads to one layout step that loads the
// picture of App.opf (hubble when none is selected), sizes the preview from the size field and
// the mode, shows the guide line of the mode, resizes the canvas to the preview, keeps the
// framed copy in App.opSmall and writes the info line; the paint that follows only draws. A file
// that cannot be decoded leaves App.op Nil and changes nothing else: the canvas then shows its
// backdrop at its last size.
class ImageCanvas : public QWidget {
    Q_OBJECT
public:
    // The main window's controls that the layout step reads and writes.
    struct Controls {
        QLineEdit* resizedWidth = nullptr;
        QRadioButton* RadioButtonWidth = nullptr;
        QWidget* wRect = nullptr;
        QWidget* hRect = nullptr;
        QLabel* info = nullptr;
    };

    explicit ImageCanvas(QWidget* parent = nullptr);
    void bind(const Controls& controls);
    // Asks for a new layout step and repaint at the next turn of the event loop; several calls
    // before then make one step.
    void Invalidate();

protected:
    void showEvent(QShowEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // What the paint draws: the frame colour and the picture at its place inside.
    struct FramedPicture {
        PreviewGeometry geometry;
        QColor colour;
        QImage picture;
    };

    void layOut();
    void showGuideLine(const PreviewGeometry& geometry);
    static void draw(QPainter& painter, const FramedPicture& framed, bool withOutline);

    Controls controls_;
    QPixmap backdrop_;
    DecodedPreviews decoded_;
    // Empty before the first layout and after a picture that could not be loaded.
    std::optional<FramedPicture> shown_;
    bool layoutPending_ = false;
};

#pragma once

#include <QLabel>
#include <memory>

class QTextDocument;

// A wrapping label whose rows move closer together when its text needs more rows than its box
// holds at the font's usual spacing, so that the last row is not cut off where another font
// than the design's wraps onto one row more. Line breaks at the end of the text show nothing
// and take no room.
class CompactLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

    // The height the text takes at `width`, at the spacing it is painted with.
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // The text laid out across `width`, its rows as close as the label's height asks.
    std::unique_ptr<QTextDocument> layOut(int width) const;
};

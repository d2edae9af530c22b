#pragma once

#include <QLabel>

// A one-line label: it holds its whole text, but shows only what stands before the first line
// break, so that a second line can travel with the label without being seen.
class FirstLineLabel : public QLabel {
    Q_OBJECT
public:
    using QLabel::QLabel;

    // The room the first line takes.
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString firstLine() const;
};

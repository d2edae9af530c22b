#pragma once

#include <QElapsedTimer>
#include <QWidget>

// An indeterminate busy wheel: twelve spokes, the bright one going round with time. It keeps no
// timer: each repaint draws the turn reached by then. The progress window is repainted after
// every counted image while the walk of a folder holds the event loop, and so the wheel turns
// with the count.
class ProgressWheel : public QWidget {
    Q_OBJECT
public:
    explicit ProgressWheel(QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QElapsedTimer running_;
};

#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <memory>

namespace Ui {
class ProgressWindow;
}

// The small window that stands on screen while a dropped folder is read, with the running count
// of the images added. The walk of the folder holds the event loop, so the window repaints
// itself when asked instead of waiting for the loop.
class ProgressWindow : public QWidget {
    Q_OBJECT
public:
    explicit ProgressWindow(QWidget* parent = nullptr);
    ~ProgressWindow() override;

    // Shows the window for the length of a drop, already painted on screen when it returns.
    void showForWalk();
    void hideAfterWalk();

    void setCountText(const QString& text);
    QString countText() const;

    enum class Repaint { AtMostOncePerFrame, Now };
    // Repaints within the call, if the window is showing. A fast walk asks after every item;
    // a frame's worth of requests then makes one repaint.
    void refresh(Repaint when);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::ProgressWindow> ui_;
    QElapsedTimer sinceRepaint_;
    bool showingDrop_ = false;
};

#pragma once

#include <QElapsedTimer>
#include <QWidget>
#include <memory>

namespace Ui {
class WindowProgess;
}

// The small window that stands on screen while a dropped folder is read, with the running count
// of the images added. The walk of the folder holds the event loop, so the window repaints
// itself when asked instead of waiting for the loop.
class WindowProgess : public QWidget {
    Q_OBJECT
public:
    explicit WindowProgess(QWidget* parent = nullptr);
    ~WindowProgess() override;

    // Shows the window for the length of a drop, already painted on screen when it returns.
    void Show();
    void Hide();

    void setProgressInfoText(const QString& text);
    QString progressInfoText() const;

    enum class Repaint { AtMostOncePerFrame, Now };
    // Repaints within the call, if the window is showing. A fast walk asks after every item;
    // a frame's worth of requests then makes one repaint.
    void Refresh(Repaint when);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    std::unique_ptr<Ui::WindowProgess> ui_;
    QElapsedTimer sinceRepaint_;
    bool showingDrop_ = false;
};

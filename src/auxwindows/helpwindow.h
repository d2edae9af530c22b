#pragma once

#include <memory>

#include "auxwindows/dialogwindow.h"

class QPlainTextEdit;
namespace Ui {
class HelpWindow;
}

// The steps for making a gallery, in seven languages, one to a tab. Plain reading matter: the
// user can switch tabs, scroll and close it.
class HelpWindow : public SheetWindow {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent = nullptr);
    ~HelpWindow() override;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // One to a tab, in the order of the tabs.
    QList<QPlainTextEdit*> textAreas() const;
    void cancel();

    std::unique_ptr<Ui::HelpWindow> ui;
};

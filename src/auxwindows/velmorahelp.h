#pragma once

#include <memory>

#include "auxwindows/dialogwindow.h"

class QPlainTextEdit;
namespace Ui {
class VelmoraHelp;
}

// The steps for making a gallery, in seven languages, one to a tab. Plain reading matter: the
// user can switch tabs, scroll and close it.
class VelmoraHelp : public SheetWindow {
    Q_OBJECT
public:
    explicit VelmoraHelp(QWidget* parent = nullptr);
    ~VelmoraHelp() override;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // One to a tab, in the order of the tabs.
    QList<QPlainTextEdit*> textAreas() const;
    void PushButton1_Action();

    std::unique_ptr<Ui::VelmoraHelp> ui;
};

#pragma once

#include "auxwindows/dialogwindow.h"
#include "auxwindows/ui_velmorahelp.h"

// The steps for making a gallery, in seven languages, one to a tab. Plain reading matter: the
// user can switch tabs, scroll and close it.
class VelmoraHelp : public SheetWindow, private Ui::VelmoraHelp {
    Q_OBJECT
public:
    explicit VelmoraHelp(QWidget* parent = nullptr);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    // One to a tab, in the order of the tabs.
    QList<QPlainTextEdit*> textAreas() const;
    void PushButton1_Action();
};

#pragma once

#include <QList>

#include "auxwindows/dialogwindow.h"
#include "preferences/ui_windowpreferences.h"

// The sheet that shows the settings of App and lets the user change them. It works on a copy:
// its controls change only each other, and App changes only when "OK" is pressed.
class WindowPreferences : public SheetWindow, private Ui::WindowPreferences {
    Q_OBJECT
public:
    explicit WindowPreferences(QWidget* parent = nullptr);

protected:
    // Escape is the key of "Cancel".
    void escapePressed() override;

private:
    // Fills the controls from App, through their handlers.
    void Event_Open();

    void PushButton1_Action();
    void PushButton2_Action();
    void savePathButton_Action(int Index);
    void saveImageFormat_Action(int Index);
    void PopupMenuQuality_Change();
    void SliderFrameWidth_ValueChanged();
    void PushButtonColor_Action();

    // The radio arrays, by Index.
    QList<QRadioButton*> savePathButton;
    QList<QRadioButton*> saveImageFormat;
    QList<QRadioButton*> RadioButtonFrame;
};

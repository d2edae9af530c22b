#pragma once

#include <QList>
#include <memory>

#include "auxwindows/dialogwindow.h"

class Preferences;
class QRadioButton;
namespace Ui {
class WindowPreferences;
}

// The sheet that shows the preferences and lets the user change them. It works on a copy: its
// controls change only each other, and the preferences change only when "OK" is pressed.
class WindowPreferences : public SheetWindow {
    Q_OBJECT
public:
    explicit WindowPreferences(Preferences& preferences, QWidget* parent = nullptr);
    ~WindowPreferences() override;

protected:
    // Escape is the key of "Cancel".
    void escapePressed() override;

private:
    // Fills the controls from the preferences, through their handlers.
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

    Preferences& preferences_;
    std::unique_ptr<Ui::WindowPreferences> ui;
};

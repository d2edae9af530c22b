#pragma once

#include <QList>
#include <memory>

#include "auxwindows/dialogwindow.h"

class Preferences;
class QRadioButton;
namespace Ui {
class PreferencesWindow;
}

// The sheet that shows the preferences and lets the user change them. It works on a copy: its
// controls change only each other, and the preferences change only when "OK" is pressed.
class PreferencesWindow : public SheetWindow {
    Q_OBJECT
public:
    explicit PreferencesWindow(Preferences& preferences, QWidget* parent = nullptr);
    ~PreferencesWindow() override;

protected:
    // Escape is the key of "Cancel".
    void escapePressed() override;

private:
    // Fills the controls from the preferences, through their handlers.
    void showPreferences();

    void cancel();
    void acceptChanges();
    void showSavePath(int Index);
    void enableQuality(int Index);
    void describeQuality();
    void showFrameWidth();
    void chooseFrameColour();

    // The radio arrays, by Index.
    QList<QRadioButton*> savePathButtons;
    QList<QRadioButton*> imageFormatButtons;
    QList<QRadioButton*> frameButtons;

    Preferences& preferences_;
    std::unique_ptr<Ui::PreferencesWindow> ui;
};

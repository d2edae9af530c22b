// The menu items of App that open a window of their own.
#include "app/app.h"
#include "auxwindows/aboutwindow.h"
#include "mainwindow/mainwindow.h"
#include "platform/sharedwindow.h"
#include "preferences/preferenceswindow.h"

bool App::showAbout() {
    sharedInstance<AboutWindow>()->showOver(windowMain());
    return true;
}

bool App::showPreferences() {
    sharedInstance<PreferencesWindow>(preferences_)->showAsSheetOver(windowMain());
    return true;
}

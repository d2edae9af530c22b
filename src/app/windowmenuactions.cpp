// The menu items of App that open a window of their own.
#include "app/app.h"
#include "auxwindows/windowabout.h"
#include "mainwindow/windowmain.h"
#include "platform/sharedwindow.h"
#include "preferences/windowpreferences.h"

bool App::_About_Action() {
    sharedInstance<WindowAbout>()->Show(windowMain());
    return true;
}

bool App::_Preferences_Action() {
    sharedInstance<WindowPreferences>(preferences_)->ShowWithin(windowMain());
    return true;
}

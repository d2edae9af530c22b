// Temporary: replaced by the windows that these handlers open.
#include "app/app.h"
bool App::_About_Action() {
    return true;
}
bool App::_Preferences_Action() {
    return true;
}
void App::SavePrefs() {}
void App::loadPrefs() {}

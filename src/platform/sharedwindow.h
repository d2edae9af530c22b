#pragma once

#include <QPointer>
#include <utility>

// Each window class has one shared instance, reached through the class: naming it gives the
// window that exists and otherwise creates it. Windows that close delete themselves
// (Qt::WA_DeleteOnClose), so the next naming makes a new one; a hidden window comes back as is.
template <class Window>
QPointer<Window>& sharedInstanceSlot() {
    static QPointer<Window> slot;
    return slot;
}

// A window made anew is given `arguments`, its collaborators.
template <class Window, class... Arguments>
Window* sharedInstance(Arguments&&... arguments) {
    QPointer<Window>& slot = sharedInstanceSlot<Window>();
    if (!slot) slot = new Window(std::forward<Arguments>(arguments)...);
    return slot;
}

// The shared instance if one exists, without creating it.
template <class Window>
Window* existingInstance() {
    return sharedInstanceSlot<Window>();
}

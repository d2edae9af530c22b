#pragma once

#include <QPointer>

// Each window class has one shared instance, reached through the class: naming it gives the
// window that exists and otherwise creates it. Windows that close delete themselves
// (Qt::WA_DeleteOnClose), so the next naming makes a new one; a hidden window comes back as is.
template <class Window>
QPointer<Window>& sharedInstanceSlot() {
    static QPointer<Window> slot;
    return slot;
}

template <class Window>
Window* sharedInstance() {
    QPointer<Window>& slot = sharedInstanceSlot<Window>();
    if (!slot) slot = new Window;
    return slot;
}

// The shared instance if one exists, without creating it.
template <class Window>
Window* existingInstance() {
    return sharedInstanceSlot<Window>();
}

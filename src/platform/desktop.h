#pragma once

#include <QString>

// Handing files and addresses to the user's desktop, behind an interface that tests replace so
// that no test ever opens a browser.
class Desktop {
public:
    virtual ~Desktop() = default;
    // Opens a file in its default application; false when none could be started.
    virtual bool launch(const QString& path) = 0;
    // Opens an address in the default web browser.
    virtual void showURL(const QString& url) = 0;
};

class QtDesktop final : public Desktop {
public:
    bool launch(const QString& path) override;
    void showURL(const QString& url) override;
};

namespace platform {
// The desktop in use: the real one unless a test installed another (nullptr restores it).
Desktop& desktop();
void installDesktop(Desktop* replacement);

// Opens a file in its default application, or an address in the default web browser. Opening a
// file says whether an application could be started for it.
bool openFile(const QString& path);
void openAddress(const QString& url);
}  // namespace platform

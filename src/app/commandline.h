#pragma once

#include <QString>
#include <QStringList>
#include <optional>

#include "app/writecommand.h"

// What `velmora [--help] [--version] [FOLDER]` or `velmora --write [OPTIONS] FOLDER...` asks for.
struct CommandLine {
    // The folder to take in once the main window is open; empty for none.
    QString folder;
    // The pages to write with no window.
    std::optional<WriteRequest> write;
    // Set when the run ends here: the version was printed, or the line could not be used.
    std::optional<int> exitCode;
};

// Reads the program's arguments (file names keep their bytes, see nativeName) as Qt programs do:
// --help and an unknown option are answered on the terminal by Qt, which ends the program there.
CommandLine readCommandLine(const QStringList& arguments);

// Does what needs no window (--help, --version, --write) before any window system is reached, so
// that it works with no display, and returns the exit status; nothing when the window is wanted.
std::optional<int> runWithoutWindow(int& argc, char** argv);

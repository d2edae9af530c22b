#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// What `velmora [--help] [--version] [FOLDER]` asks for.
struct CommandLine {
    // The folder to take in once the main window is open; empty for none.
    QString folder;
    // Set when the run ends here: the version was printed, or the line could not be used.
    std::optional<int> exitCode;
};

// Reads the program's arguments (file names keep their bytes, see nativeName) as Qt programs do:
// --help and an unknown option are answered on the terminal by Qt, which ends the program there.
CommandLine readCommandLine(const QStringList& arguments);

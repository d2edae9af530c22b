#include "app/app.h"
#include "app/commandline.h"
#include "platform/nativename.h"

int main(int argc, char** argv) {
    if (const std::optional<int> status = runWithoutWindow(argc, argv)) return *status;
    App app(argc, argv);
    const CommandLine commandLine = readCommandLine(nativeName::fromArguments(argc, argv));
    if (commandLine.exitCode) return *commandLine.exitCode;
    app.start();
    if (!commandLine.folder.isEmpty()) app.openFolder(commandLine.folder);
    return app.exec();
}

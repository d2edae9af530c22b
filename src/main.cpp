#include "app/app.h"
#include "app/commandline.h"

int main(int argc, char** argv) {
    App app(argc, argv);
    const CommandLine commandLine = readCommandLine(App::arguments());
    if (commandLine.exitCode) return *commandLine.exitCode;
    app.start();
    if (!commandLine.folder.isEmpty()) app.openFolder(commandLine.folder);
    return app.exec();
}

#include "app/commandline.h"

#include <QCommandLineParser>
#include <iostream>

#include "app/identity.h"

CommandLine readCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Turns a folder of images into one web gallery page."));
    parser.addHelpOption();
    // Qt's own version option would print the short version that the about window shows; the
    // command line gives the full release, as packages know it.
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Displays version information."));
    parser.addOption(version);
    parser.addPositionalArgument(QStringLiteral("FOLDER"),
                                 QStringLiteral("A folder of images to list, as if dropped."),
                                 QStringLiteral("[FOLDER]"));
    parser.process(arguments);

    if (parser.isSet(version)) {
        std::cout << "Velmora " VELMORA_RELEASE << std::endl;
        return {{}, 0};
    }
    const QStringList folders = parser.positionalArguments();
    if (folders.size() > 1) {
        std::cerr << "velmora: one folder at a time; see velmora --help" << std::endl;
        return {{}, 1};
    }
    return {folders.value(0), std::nullopt};
}

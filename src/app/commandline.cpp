#include "app/commandline.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <algorithm>
#include <iostream>

#include "app/identity.h"
#include "page/colournames.h"
#include "platform/nativename.h"

namespace {

const QString kDescription = QStringLiteral(
    "Turns a folder of images into one web gallery page.\n"
    "\n"
    "With a FOLDER, the window opens with its images listed. With --write, the page of each\n"
    "FOLDER is written with no window, as the window would write it: a gallery page of\n"
    "Velmora's already in the folder gives the order, captions and settings, new pictures\n"
    "follow, and the options below change the settings. A picture that enters with no caption\n"
    "takes the description stored in its file, if it has one.\n"
    "\n"
    "Examples:\n"
    "  velmora ~/Pictures/Iceland\n"
    "  velmora --write --title Iceland --background navy --margins ~/Pictures/Iceland \\\n"
    "          ~/Pictures/Faroe\n"
    "\n"
    "Exit status: 0 when all went well, 1 for a command line that cannot be used, 2 when a\n"
    "page of --write could not be written (the other folders are written all the same).");

struct TextOption {
    QCommandLineOption option;
    std::optional<QString> SettingChoices::*choice;
    bool colour;
};

void complain(const QString& message) {
    std::cerr << "velmora: " << message.toUtf8().constData() << "; see velmora --help" << std::endl;
}

}  // namespace

CommandLine readCommandLine(const QStringList& arguments) {
    QCommandLineParser parser;
    parser.setApplicationDescription(kDescription);
    parser.addHelpOption();
    // Qt's own version option would print the short version that the about window shows; the
    // command line gives the full release, as packages know it.
    const QCommandLineOption version({QStringLiteral("v"), QStringLiteral("version")},
                                     QStringLiteral("Displays version information."));
    const QCommandLineOption write(
        QStringLiteral("write"),
        QStringLiteral("Writes the gallery page of each FOLDER with no window, then exits."));
    // The options that only --write reads, with a value or without.
    const auto text = [](const char* name, const char* value, const char* what) {
        return QCommandLineOption(QString::fromLatin1(name),
                                  QStringLiteral("With --write: ") + QString::fromLatin1(what),
                                  QString::fromLatin1(value));
    };
    const auto flag = [&text](const char* name, const char* what) { return text(name, "", what); };
    const QCommandLineOption replace =
        flag("replace", "replaces a web page that Velmora did not write.");
    const TextOption texts[] = {
        {text("page", "NAME", "the page's file name (index.html)."), &SettingChoices::pageFileName,
         false},
        {text("head-title", "TEXT", "the title in the page's head (USER's photo gallery)."),
         &SettingChoices::headTitle, false},
        {text("title", "TEXT", "the gallery title on the page (none)."), &SettingChoices::title,
         false},
        {text("subtitle", "TEXT", "the sub title on the page (none)."), &SettingChoices::subtitle,
         false},
        {text("background", "COLOUR", "the background colour (Black): a CSS colour name."),
         &SettingChoices::backgroundColour, true},
        {text("title-colour", "COLOUR", "the colour of the titles (White)."),
         &SettingChoices::titleColour, true},
        {text("caption-colour", "COLOUR", "the colour of the captions (White)."),
         &SettingChoices::captionColour, true},
    };
    const QCommandLineOption fullWidth =
        flag("full-width", "the images span the page's full width (the default).");
    const QCommandLineOption margins =
        flag("margins", "the images stand between margins left and right.");
    const QCommandLineOption selfContained =
        flag("self-contained", "a page that needs nothing from the internet.");
    parser.addOptions({version, write, replace});
    for (const TextOption& option : texts) parser.addOption(option.option);
    parser.addOptions({fullWidth, margins, selfContained});
    parser.addPositionalArgument(
        QStringLiteral("FOLDER"),
        QStringLiteral("A folder of images to list, as if dropped; with --write, any number."),
        QStringLiteral("[FOLDER...]"));
    parser.process(arguments);

    if (parser.isSet(version)) {
        std::cout << "Velmora " VELMORA_RELEASE << std::endl;
        return {{}, {}, 0};
    }
    const QStringList folders = parser.positionalArguments();
    if (!parser.isSet(write)) {
        for (const QString& name : parser.optionNames()) {
            if (name != QStringLiteral("write")) {
                complain(QStringLiteral("--") + name + QStringLiteral(" goes with --write"));
                return {{}, {}, 1};
            }
        }
        if (folders.size() > 1) {
            complain(QStringLiteral("one folder at a time"));
            return {{}, {}, 1};
        }
        return {folders.value(0), {}, std::nullopt};
    }

    WriteRequest request{folders, {}, parser.isSet(replace)};
    if (folders.isEmpty()) {
        complain(QStringLiteral("--write needs a folder"));
        return {{}, {}, 1};
    }
    for (const TextOption& option : texts) {
        if (!parser.isSet(option.option)) continue;
        QString value = parser.value(option.option);
        if (option.colour) {
            value = listedColourName(value);
            if (value.isEmpty()) {
                complain(QStringLiteral("\"") + parser.value(option.option) +
                         QStringLiteral("\" is not one of the colour names Velmora offers"));
                return {{}, {}, 1};
            }
        }
        request.settings.*option.choice = value;
    }
    if (parser.isSet(fullWidth) && parser.isSet(margins)) {
        complain(QStringLiteral("--full-width or --margins, not both"));
        return {{}, {}, 1};
    }
    if (parser.isSet(fullWidth) || parser.isSet(margins))
        request.settings.fullWidth = parser.isSet(fullWidth);
    request.settings.selfContained = parser.isSet(selfContained);
    return {{}, request, std::nullopt};
}

std::optional<int> runWithoutWindow(int& argc, char** argv) {
    const QStringList arguments = nativeName::fromArguments(argc, argv);
    // Every long option is Velmora's own (Qt's take one dash), and none of them needs a window:
    // a usage error is told with no display as well.
    const auto ownOption = [](const QString& argument) {
        return argument.startsWith(QStringLiteral("--")) ||
               QStringList{QStringLiteral("-h"), QStringLiteral("-?"), QStringLiteral("-v")}
                   .contains(argument);
    };
    const auto end = std::find(arguments.begin(), arguments.end(), QStringLiteral("--"));
    if (std::none_of(arguments.begin(), end, ownOption)) return std::nullopt;
    // No QGuiApplication: it would look for a display, and abort where there is none.
    QCoreApplication console(argc, argv);
    console.setApplicationName(QStringLiteral("Velmora"));
    console.setApplicationVersion(QStringLiteral(VELMORA_VERSION));
    const CommandLine commandLine = readCommandLine(arguments);
    if (commandLine.exitCode) return commandLine.exitCode;
    if (commandLine.write) return writeGalleries(*commandLine.write);
    // What looked like an option was the value of one: the window is wanted after all.
    return std::nullopt;
}

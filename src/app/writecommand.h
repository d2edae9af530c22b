#pragma once

#include <QString>
#include <QStringList>
#include <optional>

// The page settings given on the command line; what is not given stays as the folder's page or
// a new gallery has it.
struct SettingChoices {
    std::optional<QString> pageFileName;
    std::optional<QString> headTitle;
    std::optional<QString> title;
    std::optional<QString> subtitle;
    std::optional<QString> backgroundColour;  // each colour as the colour list spells it
    std::optional<QString> titleColour;
    std::optional<QString> captionColour;
    std::optional<bool> fullWidth;
    bool selfContained = false;
};

// What `velmora --write` is to do.
struct WriteRequest {
    QStringList folders;
    SettingChoices settings;
    // Whether a web page that Velmora did not write may be replaced; the window would ask.
    bool replace = false;
};

// Writes the gallery page of each folder with no window, as the window would write it after the
// folder was dropped, its page restored and the settings chosen, and asks nothing. Says each
// page written on standard output and each problem on standard error. Returns the exit status:
// 0 when every page was written, 2 when any folder failed; the others are written all the same.
int writeGalleries(const WriteRequest& request);

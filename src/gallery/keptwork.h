#pragma once

#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <optional>

#include "page/galleryreader.h"

// The work on galleries whose page is not written yet, kept in Velmora's own data folder, never
// beside the photos, so that quitting, a crash or a power cut loses none of it: for each folder
// the rows' order with their captions, and every setting of the page. A gallery's work is known
// by the folder in its settings; a gallery without rows has none.
class KeptWork : public QObject {
    Q_OBJECT
public:
    // `current` gives the work as it stands when it is kept.
    explicit KeptWork(std::function<GalleryPage()> current, QObject* parent = nullptr);
    // Keeps what is still waiting.
    ~KeptWork() override;

    // The work changed: it is kept within half a second, however fast the changes come.
    void changed();
    // Keeps at once what is waiting, before the gallery moves on to another folder.
    void keepWaiting();
    // Drops the work kept for `folder` (a path, with or without its closing "/"), and any waiting.
    void forget(const QString& folder);

    std::optional<GalleryPage> find(const QString& folder) const;
    // The work kept last of those whose folder is still there.
    std::optional<GalleryPage> newest() const;

private:
    void keep();

    std::function<GalleryPage()> current_;
    QTimer wait_;
};

#pragma once

#include <QImageIOPlugin>

// Makes the program's own picture readers known to every QImageReader of the program: AVIF, which
// no Qt image plugin of the platform reads, and still WebP decoded at the size it is wanted at.
// It is built into the program and imported where pictures are opened.
class ReadersPlugin : public QImageIOPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "readersplugin.json")
public:
    Capabilities capabilities(QIODevice* device, const QByteArray& format) const override;
    QImageIOHandler* create(QIODevice* device, const QByteArray& format) const override;
};

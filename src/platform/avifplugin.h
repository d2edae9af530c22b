#pragma once

#include <QImageIOPlugin>

// Makes the AVIF reader known to every QImageReader of the program. It is built into the program
// and imported where pictures are opened, since no Qt image plugin of the platform reads AVIF.
class AvifPlugin : public QImageIOPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "avifplugin.json")
public:
    Capabilities capabilities(QIODevice* device, const QByteArray& format) const override;
    QImageIOHandler* create(QIODevice* device, const QByteArray& format) const override;
};

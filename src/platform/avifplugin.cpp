#include "platform/avifplugin.h"

#include "platform/avifhandler.h"

QImageIOPlugin::Capabilities AvifPlugin::capabilities(QIODevice* device,
                                                      const QByteArray& format) const {
    if (format == "avif") return CanRead;
    if (!format.isEmpty() || !device || !device->isReadable()) return {};
    return AvifHandler::canRead(device) ? CanRead : Capabilities();
}

QImageIOHandler* AvifPlugin::create(QIODevice* device, const QByteArray& format) const {
    auto* handler = new AvifHandler;
    handler->setDevice(device);
    handler->setFormat(format.isEmpty() ? QByteArray("avif") : format);
    return handler;
}

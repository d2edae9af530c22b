#include "platform/readersplugin.h"

#include "platform/avifhandler.h"
#include "platform/stillwebphandler.h"

QImageIOPlugin::Capabilities ReadersPlugin::capabilities(QIODevice* device,
                                                         const QByteArray& format) const {
    if (format == "avif" || format == StillWebpHandler::kFormat) return CanRead;
    // Qt's own plugin reads WebP when the format is left to the content.
    if (!format.isEmpty() || !device || !device->isReadable()) return {};
    return AvifHandler::canRead(device) ? CanRead : Capabilities();
}

QImageIOHandler* ReadersPlugin::create(QIODevice* device, const QByteArray& format) const {
    QImageIOHandler* handler = nullptr;
    if (format == StillWebpHandler::kFormat)
        handler = new StillWebpHandler;
    else
        handler = new AvifHandler;
    handler->setDevice(device);
    handler->setFormat(format.isEmpty() ? QByteArray("avif") : format);
    return handler;
}

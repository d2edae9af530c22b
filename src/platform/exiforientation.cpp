#include "platform/exiforientation.h"

#include <QIODevice>
#include <QtEndian>

namespace exifOrientation {
namespace {

using Turn = QImageIOHandler::Transformations;

// More than any EXIF block a camera or editor writes; a larger chunk is not read.
constexpr qint64 kLargestExif = 1 << 20;
constexpr quint16 kOrientationTag = 0x0112;
constexpr quint16 kShort = 3;
// A TIFF block holds five directories at most; a chain longer than this is damaged.
constexpr int kDirectoriesLookedAt = 10;
constexpr int kChunksLookedAt = 64;

// EXIF orientations 1 to 8 as Qt's transformations.
Turn turnOf(quint16 orientation) {
    switch (orientation) {
        case 2:
            return QImageIOHandler::TransformationMirror;
        case 3:
            return QImageIOHandler::TransformationRotate180;
        case 4:
            return QImageIOHandler::TransformationFlip;
        case 5:
            return QImageIOHandler::TransformationFlipAndRotate90;
        case 6:
            return QImageIOHandler::TransformationRotate90;
        case 7:
            return QImageIOHandler::TransformationMirrorAndRotate90;
        case 8:
            return QImageIOHandler::TransformationRotate270;
        default:
            return QImageIOHandler::TransformationNone;
    }
}

QByteArray pngExif(QIODevice& device) {
    if (device.read(8) != QByteArrayLiteral("\x89PNG\r\n\x1a\n")) return {};
    for (int chunk = 0; chunk < kChunksLookedAt; ++chunk) {
        const QByteArray header = device.read(8);
        if (header.size() < 8) return {};
        const quint32 length = qFromBigEndian<quint32>(header.constData());
        const QByteArray type = header.sliced(4);
        if (type == "eXIf") return length <= kLargestExif ? device.read(length) : QByteArray();
        // The orientation is to be known before the pixels.
        if (type == "IDAT" || type == "IEND") return {};
        if (!device.seek(device.pos() + length + 4)) return {};  // the data and its checksum
    }
    return {};
}

}  // namespace

Turn ofTiff(const QByteArray& exif) {
    // Some writers keep the "Exif" mark of a JPEG's block in front.
    const QByteArray tiff = exif.startsWith(QByteArrayLiteral("Exif\0\0")) ? exif.sliced(6) : exif;
    const bool little = tiff.startsWith("II");
    if (tiff.size() < 8 || (!little && !tiff.startsWith("MM"))) return {};
    const auto number = [&](qsizetype at, int bytes) -> quint32 {
        if (at < 0 || at + bytes > tiff.size()) return 0;
        const char* p = tiff.constData() + at;
        if (bytes == 2) return little ? qFromLittleEndian<quint16>(p) : qFromBigEndian<quint16>(p);
        return little ? qFromLittleEndian<quint32>(p) : qFromBigEndian<quint32>(p);
    };
    // Qt's JPEG decoder follows the chain of directories, forward only, to the first orientation
    // tag, and takes it only as one SHORT; reading as it does keeps a picture's size and its
    // decode in agreement.
    qsizetype directory = number(4, 4);
    for (int looked = 0; looked < kDirectoriesLookedAt && directory >= 8; ++looked) {
        const qsizetype end = directory + 2 + 12 * qsizetype(number(directory, 2));
        for (qsizetype at = directory + 2; at < end && at + 12 <= tiff.size(); at += 12) {
            if (number(at, 2) != kOrientationTag) continue;
            if (number(at + 2, 2) != kShort || number(at + 4, 4) != 1) return {};
            return turnOf(number(at + 8, 2));
        }
        const qsizetype next = number(end, 4);  // 0 past the block's end
        if (next < end + 4) return {};
        directory = next;
    }
    return {};
}

Turn ofPng(QIODevice& device) {
    const qint64 start = device.pos();
    if (!device.seek(0)) return {};
    const QByteArray exif = pngExif(device);
    device.seek(start);
    return exif.isEmpty() ? Turn() : ofTiff(exif);
}

QImage applied(QImage image, Turn turn) {
    if (turn == QImageIOHandler::TransformationNone) return image;
    image = std::move(image).mirrored(turn & QImageIOHandler::TransformationMirror,
                                      turn & QImageIOHandler::TransformationFlip);
    if (turn & QImageIOHandler::TransformationRotate90)
        image = image.transformed(QTransform().rotate(90));
    return image;
}

}  // namespace exifOrientation

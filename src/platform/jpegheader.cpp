#include "platform/jpegheader.h"

#include <QIODevice>

#include "platform/exiforientation.h"

namespace {

constexpr uchar kStartOfImage = 0xD8;
constexpr uchar kEndOfImage = 0xD9;
constexpr uchar kStartOfScan = 0xDA;
constexpr uchar kApp1 = 0xE1;  // where EXIF blocks stand, and XMP ones
constexpr int kMostComponents = 10;

// The frame markers, SOF0 to SOF15, which share their range with three markers that are none.
bool isFrame(uchar code) {
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xC8 && code != 0xCC;
}

// Markers that stand alone, with no segment after them.
bool standsAlone(uchar code) {
    return code == 0x01 || (code >= 0xD0 && code <= 0xD7);
}

quint16 bigEndianAt(const QByteArray& bytes, int at) {
    return quint16(uchar(bytes[at]) << 8 | uchar(bytes[at + 1]));
}

// The code of the next marker. Stray bytes before it are passed over, as decoders pass them.
std::optional<uchar> nextMarker(QIODevice& device) {
    char byte = 0;
    do {
        if (!device.getChar(&byte)) return std::nullopt;
    } while (uchar(byte) != 0xFF);
    while (uchar(byte) == 0xFF)
        if (!device.getChar(&byte)) return std::nullopt;
    return uchar(byte);
}

}  // namespace

std::optional<JpegHeader> readJpegHeader(QIODevice& device) {
    const QByteArray start = device.read(2);
    if (start.size() != 2 || uchar(start[0]) != 0xFF || uchar(start[1]) != kStartOfImage)
        return std::nullopt;
    JpegHeader header;
    bool framed = false, exifSeen = false;
    for (;;) {
        const std::optional<uchar> code = nextMarker(device);
        if (!code || *code == kEndOfImage) return std::nullopt;
        if (standsAlone(*code)) continue;
        if (*code == kStartOfScan) return framed ? std::optional(header) : std::nullopt;
        const QByteArray lengthBytes = device.read(2);
        if (lengthBytes.size() != 2 || bigEndianAt(lengthBytes, 0) < 2) return std::nullopt;
        const qint64 length = bigEndianAt(lengthBytes, 0) - 2;
        if (!isFrame(*code) && *code != kApp1) {
            if (device.skip(length) != length) return std::nullopt;
            continue;
        }
        const QByteArray segment = device.read(length);
        if (segment.size() != length) return std::nullopt;
        if (isFrame(*code) && !framed) {
            // Sample precision, the height and the width, the number of components and three bytes
            // for each. The decoder takes 8-bit samples only, and refuses a frame of no
            // components or more than it can hold.
            if (length < 6) return std::nullopt;
            const int components = uchar(segment[5]);
            if (uchar(segment[0]) != 8 || components < 1 || components > kMostComponents ||
                length != 6 + 3 * components)
                return std::nullopt;
            header.stored = QSize(bigEndianAt(segment, 3), bigEndianAt(segment, 1));
            framed = true;
        } else if (*code == kApp1 && !exifSeen && segment.startsWith(QByteArray("Exif\0\0", 6))) {
            header.orientation = exifOrientation::ofTiff(segment.mid(6));
            exifSeen = true;
        }
    }
}

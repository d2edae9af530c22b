#include "platform/jpegheader.h"

#include <QIODevice>

#include "platform/exiforientation.h"

namespace {

constexpr uchar kStartOfImage = 0xD8;
constexpr uchar kEndOfImage = 0xD9;
constexpr uchar kStartOfScan = 0xDA;
constexpr uchar kApp1 = 0xE1;  // where EXIF blocks stand, and XMP ones
constexpr int kMostComponents = 10;
constexpr int kLargestSide = 65500;
constexpr int kLargestSampling = 4;

// The frames the decoder reads: sequential and progressive, Huffman or arithmetic coded. The
// other frame markers, lossless and hierarchical, it refuses.
bool isDecodableFrame(uchar code) {
    return code == 0xC0 || code == 0xC1 || code == 0xC2 || code == 0xC9 || code == 0xCA;
}

bool isOtherFrame(uchar code) {
    return code >= 0xC0 && code <= 0xCF && code != 0xC4 && code != 0xCC && !isDecodableFrame(code);
}

// Segments the decoder reads or steps over: the tables, the restart interval, a line count,
// application data and comments. It refuses any other marker before the scan.
bool isKnownSegment(uchar code) {
    return code == 0xC4 || code == 0xCC || code == 0xDB || code == 0xDC || code == 0xDD ||
           (code >= 0xE0 && code <= 0xEF) || code == 0xFE;
}

// Markers that stand alone, with no segment after them.
bool standsAlone(uchar code) {
    return code == 0x01 || (code >= 0xD0 && code <= 0xD7);
}

quint16 bigEndianAt(const QByteArray& bytes, int at) {
    return quint16(uchar(bytes[at]) << 8 | uchar(bytes[at + 1]));
}

// The code of the next marker. Stray bytes before it are passed over, a stuffed FF 00 among them,
// as decoders pass them.
std::optional<uchar> nextMarker(QIODevice& device) {
    char byte = 0;
    do {
        do {
            if (!device.getChar(&byte)) return std::nullopt;
        } while (uchar(byte) != 0xFF);
        while (uchar(byte) == 0xFF)
            if (!device.getChar(&byte)) return std::nullopt;
    } while (byte == 0);
    return uchar(byte);
}

// The size a frame segment gives, when the decoder would take the frame: 8-bit samples, a side
// of 1 to 65500, 1 to 10 components and each one's sampling factors within 1 to 4.
std::optional<QSize> frameSize(const QByteArray& frame) {
    if (frame.size() < 6) return std::nullopt;
    const int components = uchar(frame[5]);
    if (uchar(frame[0]) != 8 || components < 1 || components > kMostComponents ||
        frame.size() != 6 + 3 * components)
        return std::nullopt;
    for (int component = 0; component < components; ++component) {
        const uchar sampling = uchar(frame[6 + 3 * component + 1]);
        const int across = sampling >> 4, down = sampling & 0x0F;
        if (across < 1 || across > kLargestSampling || down < 1 || down > kLargestSampling)
            return std::nullopt;
    }
    const QSize size(bigEndianAt(frame, 3), bigEndianAt(frame, 1));
    if (size.isEmpty() || size.width() > kLargestSide || size.height() > kLargestSide)
        return std::nullopt;
    return size;
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
        if (isOtherFrame(*code) || (!isDecodableFrame(*code) && !isKnownSegment(*code)))
            return std::nullopt;
        const QByteArray lengthBytes = device.read(2);
        if (lengthBytes.size() != 2 || bigEndianAt(lengthBytes, 0) < 2) return std::nullopt;
        const qint64 length = bigEndianAt(lengthBytes, 0) - 2;
        if (!isDecodableFrame(*code) && *code != kApp1) {
            if (device.skip(length) != length) return std::nullopt;
            continue;
        }
        const QByteArray segment = device.read(length);
        if (segment.size() != length) return std::nullopt;
        if (isDecodableFrame(*code)) {
            // A second frame the decoder refuses as well.
            const std::optional<QSize> size = framed ? std::nullopt : frameSize(segment);
            if (!size) return std::nullopt;
            header.stored = *size;
            framed = true;
        } else if (!exifSeen && segment.startsWith(QByteArray("Exif\0\0", 6))) {
            header.orientation = exifOrientation::ofTiff(segment.mid(6));
            exifSeen = true;
        }
    }
}

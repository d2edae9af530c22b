#include "support/testpictures.h"

#include <QBuffer>
#include <QDataStream>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace {

quint32 crc32(const QByteArray& bytes) {
    quint32 crc = 0xFFFFFFFF;
    for (const char byte : bytes) {
        crc ^= quint8(byte);
        for (int bit = 0; bit < 8; ++bit) crc = (crc >> 1) ^ (0xEDB88320 & (0 - (crc & 1)));
    }
    return ~crc;
}

// A zlib stream of `count` zero bytes in one block of fixed codes: a literal zero, then copies of
// 258 bytes from one byte back.
QByteArray zlibZeros(qint64 count) {
    QByteArray out("\x78\x01", 2);
    quint32 bits = 0;
    int held = 0;
    const auto put = [&](quint32 code, int width) {  // codes go in from their highest bit
        for (int bit = width - 1; bit >= 0; --bit) bits |= ((code >> bit) & 1) << held++;
        for (; held >= 8; held -= 8, bits >>= 8) out += char(bits & 0xFF);
    };
    put(0b110, 3);  // the last block, fixed codes
    qint64 left = count;
    for (put(0x30, 8), --left; left >= 258; left -= 258) put(0xC5 << 5, 13);
    for (; left > 0; --left) put(0x30, 8);
    put(0, 7 + 7);  // the end of the block, then up to the next byte
    QDataStream(&out, QIODevice::Append) << quint32(count % 65521 << 16 | 1);
    return out;
}

qint64 statusKilobytes(const QByteArray& field) {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) return 0;
    for (QByteArray line = status.readLine(); !line.isEmpty(); line = status.readLine())
        if (line.startsWith(field))
            return line.mid(field.size()).trimmed().split(' ')[0].toLongLong();
    return 0;
}

}  // namespace

QByteArray jpegWithOrientation(const QImage& image, int orientation) {
    QByteArray jpeg;
    QBuffer buffer(&jpeg);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "JPEG", 95);
    // APP1: "Exif", a big-endian TIFF header, and one entry: Orientation, a SHORT.
    const QByteArray exif =
        QByteArray::fromHex("ffe100224578696600004d4d002a000000080001011200030000000100");
    return jpeg.insert(2, exif + char(orientation) + QByteArray(6, '\0'));
}

bool writeAvif(const QImage& image, const QString& path, const QStringList& options) {
    QTemporaryDir dir;
    const QString png = dir.filePath(QStringLiteral("source.png"));
    if (!image.save(png)) return false;
    QProcess encoder;
    encoder.start(QStringLiteral("avifenc"), options + QStringList{png, path});
    return encoder.waitForFinished() && encoder.exitCode() == 0;
}

QByteArray pngChunk(const char* type, const QByteArray& data) {
    QByteArray body = QByteArray(type) + data;
    QByteArray chunk;
    QDataStream out(&chunk, QIODevice::WriteOnly);
    out << quint32(data.size());
    out.writeRawData(body.constData(), body.size());
    out << crc32(body);
    return chunk;
}

QByteArray blackPng(QSize size) {
    QByteArray header;
    QDataStream(&header, QIODevice::WriteOnly)
        << quint32(size.width()) << quint32(size.height()) << quint8(8) << quint8(0) << quint8(0)
        << quint8(0) << quint8(0);
    const qint64 rows = qint64{size.height()} * (1 + size.width());
    return QByteArray("\x89PNG\r\n\x1a\n", 8) + pngChunk("IHDR", header) +
           pngChunk("IDAT", zlibZeros(rows)) + pngChunk("IEND", {});
}

PeakMemory::PeakMemory() {
    // Writing 5 here sets the peak back to what is resident now (Linux).
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly)) peak.write("5");
    start_ = statusKilobytes("VmRSS:");
}

double PeakMemory::megabytes() const {
    return (statusKilobytes("VmHWM:") - start_) / 1024.0;
}

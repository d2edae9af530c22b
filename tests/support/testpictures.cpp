#include "support/testpictures.h"

#include <zlib.h>

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <cstdio>
#include <exiv2/exiv2.hpp>

#include "platform/nativename.h"

namespace {
qint64 statusKilobytes(const char* field) {
    QFile status(QStringLiteral("/proc/self/status"));
    const QByteArray fields = status.open(QIODevice::ReadOnly) ? status.readAll() : QByteArray();
    const qsizetype at = fields.indexOf(field);
    return at < 0 ? 0 : std::atoll(fields.constData() + at + qstrlen(field));  // "  1234 kB"
}
}  // namespace

QByteArray encoded(const QImage& image, const char* format, int quality) {
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format, quality);
    return buffer.data();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
    std::FILE* file = std::fopen(nativeName::toBytes(path).constData(), "wb");
    QVERIFY2(file &&
                 std::fwrite(bytes.constData(), 1, bytes.size(), file) == size_t(bytes.size()) &&
                 std::fclose(file) == 0,
             qPrintable(path));
}

namespace {
// A big-endian TIFF header and one entry: Orientation, a SHORT.
QByteArray exifWithOrientation(int orientation, bool secondDirectory = false) {
    return QByteArray::fromHex("4d4d002a00000008") +
           (secondDirectory ? QByteArray::fromHex("00000000000e") : QByteArray()) +
           QByteArray::fromHex("0001011200030000000100") + char(orientation) + QByteArray(6, '\0');
}
}  // namespace

void describe(const QString& path, const QList<std::pair<const char*, QString>>& fields) {
    const auto image = Exiv2::ImageFactory::open(path.toStdString());
    for (const auto& [key, value] : fields) {
        const QByteArray family = QByteArray(key).left(4);
        if (family == "Xmp.") image->xmpData()[key] = value.toStdString();
        if (family == "Iptc") image->iptcData()[key] = value.toStdString();
        if (family == "Exif") image->exifData()[key] = value.toStdString();
    }
    image->writeMetadata();
}

QByteArray jpegWithOrientation(const QImage& image, int orientation, bool secondDirectory) {
    const QByteArray exif =
        "Exif" + QByteArray(2, '\0') + exifWithOrientation(orientation, secondDirectory);
    QByteArray app1 = QByteArray::fromHex("ffe10000") + exif;
    qToBigEndian<quint16>(exif.size() + 2, app1.data() + 2);
    return encoded(image, "JPEG", 95).insert(2, app1);
}

QByteArray pngWithOrientation(const QImage& image, int orientation) {
    // An eXIf chunk after the header: its length, its type and data, their checksum.
    const QByteArray typed = "eXIf" + exifWithOrientation(orientation);
    QByteArray chunk(4, '\0');
    qToBigEndian<quint32>(typed.size() - 4, chunk.data());
    chunk += typed + QByteArray(4, '\0');
    qToBigEndian<quint32>(crc32(0, reinterpret_cast<const Bytef*>(typed.constData()), typed.size()),
                          chunk.data() + chunk.size() - 4);
    return encoded(image, "PNG").insert(33, chunk);
}

bool writeAvif(const QImage& image, const QString& path, const QStringList& options) {
    QTemporaryDir dir;
    const QString png = dir.filePath(QStringLiteral("source.png"));
    QProcess encoder;
    if (image.save(png)) encoder.start(QStringLiteral("avifenc"), options + QStringList{png, path});
    return encoder.waitForFinished() && encoder.exitCode() == 0;
}

QByteArray blackPng(QSize size, QSize declared) {
    QImage black(size, QImage::Format_Grayscale8);
    black.fill(0);
    QByteArray png = encoded(black, "PNG");
    if (declared.isEmpty()) return png;
    // The header's width and height, then its checksum over its type and fields.
    qToBigEndian<quint32>(declared.width(), png.data() + 16);
    qToBigEndian<quint32>(declared.height(), png.data() + 20);
    const auto* header = reinterpret_cast<const Bytef*>(png.constData() + 12);
    qToBigEndian<quint32>(crc32(0, header, 17), png.data() + 29);
    return png;
}

PeakMemory::PeakMemory() {
    // Writing 5 here sets the peak back to what is resident now (Linux).
    QFile peak(QStringLiteral("/proc/self/clear_refs"));
    if (peak.open(QIODevice::WriteOnly)) peak.write("5");
    start = statusKilobytes("VmRSS:");
}

double PeakMemory::megabytes() const {
    return (statusKilobytes("VmHWM:") - start) / 1024.0;
}

QImage photoLike(QSize size, quint32 seed) {
    QRandomGenerator random(seed);
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int noise = random.bounded(96);
            line[x] = qRgb((x * 200 / size.width() + noise) & 255,
                           (y * 200 / size.height() + noise) & 255,
                           ((x + y) * 120 / (size.width() + size.height()) + 2 * noise) & 255);
        }
    }
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < 300; ++i) {
        painter.setBrush(QColor::fromRgb(random.generate()));
        painter.setPen(QPen(QColor::fromRgb(random.generate()), random.bounded(1, 12)));
        const QRect shape(random.bounded(size.width()), random.bounded(size.height()),
                          random.bounded(std::max(1, size.width() / 6)),
                          random.bounded(std::max(1, size.height() / 6)));
        i % 2 ? painter.drawEllipse(shape) : painter.drawRect(shape);
    }
    return image;
}

#include "platform/photodescription.h"

#include <QStringDecoder>
#include <exiv2/exiv2.hpp>
#include <string>

#include "platform/nativename.h"

namespace {

// What cameras and their software write into the description field before anyone describes the
// picture: the one list of it.
const QStringList& boilerplate() {
    static const QStringList texts = {
        QStringLiteral("OLYMPUS DIGITAL CAMERA"),
        QStringLiteral("SONY DSC"),
        QStringLiteral("DCIM"),
        QStringLiteral("DIGITAL CAMERA"),
        QStringLiteral("KODAK Digital Still Camera"),
        QStringLiteral("MINOLTA DIGITAL CAMERA"),
        QStringLiteral("SAMSUNG CAMERA PICTURES"),
        QStringLiteral("Exif_JPEG_PICTURE"),
        QStringLiteral("LEAD Technologies Inc. V1.01"),
        QStringLiteral("Default"),
        QStringLiteral("Untitled"),
    };
    return texts;
}

// Metadata says nothing of its encoding often enough: UTF-8 where the bytes are, else Latin-1,
// which old cameras and IPTC editors wrote.
QString decoded(const std::string& bytes) {
    const QByteArray raw = QByteArray::fromStdString(bytes);
    QStringDecoder utf8(QStringDecoder::Utf8);
    const QString text = utf8(raw);
    return utf8.hasError() ? QString::fromLatin1(raw) : text;
}

// Fixed-size fields come padded with NULs or blanks, and a caption is one line.
QString cleaned(const QString& text) {
    QString cut = text;
    cut.replace(QChar(0), QChar(' '));
    return cut.simplified();
}

QString xmpDescription(const Exiv2::XmpData& xmp) {
    const auto found = xmp.findKey(Exiv2::XmpKey("Xmp.dc.description"));
    if (found == xmp.end()) return {};
    const auto* languages = dynamic_cast<const Exiv2::LangAltValue*>(&found->value());
    if (!languages) return decoded(found->toString());
    if (languages->value_.empty()) return {};
    const auto byDefault = languages->value_.find("x-default");
    return decoded(byDefault != languages->value_.end() ? byDefault->second
                                                        : languages->value_.begin()->second);
}

QString exifText(const Exiv2::ExifData& exif, const char* key) {
    const auto found = exif.findKey(Exiv2::ExifKey(key));
    return found == exif.end() ? QString() : cleaned(decoded(found->toString()));
}

QString iptcText(const Exiv2::IptcData& iptc, const char* key) {
    const auto found = iptc.findKey(Exiv2::IptcKey(key));
    return found == iptc.end() ? QString() : decoded(found->toString());
}

// Whether `text`, cleaned, found in a photo of the camera `make` and `model`, says nothing of the
// picture.
bool isCameraBoilerplate(const QString& text, const QString& make, const QString& model) {
    if (text.isEmpty()) return true;
    const auto same = [&text](const QString& other) {
        return text.compare(other, Qt::CaseInsensitive) == 0;
    };
    if (!model.isEmpty() && (same(model) || same(make + QChar(' ') + model))) return true;
    if (!make.isEmpty() && same(make)) return true;
    for (const QString& known : boilerplate())
        if (same(known)) return true;
    return false;
}

QString readDescription(const QString& path) {
    // Exiv2 reports what it cannot parse on standard error; a damaged file is simply one without a
    // description.
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    const Exiv2::Image::AutoPtr image =
        Exiv2::ImageFactory::open(nativeName::toBytes(path).toStdString());
    image->readMetadata();
    const Exiv2::ExifData& exif = image->exifData();
    const QString make = exifText(exif, "Exif.Image.Make");
    const QString model = exifText(exif, "Exif.Image.Model");
    for (const QString& candidate : {xmpDescription(image->xmpData()),
                                     iptcText(image->iptcData(), "Iptc.Application2.Caption"),
                                     exifText(exif, "Exif.Image.ImageDescription")}) {
        const QString text = cleaned(candidate);
        if (!isCameraBoilerplate(text, make, model)) return text;
    }
    return {};
}

}  // namespace

QString photoDescription(const QString& path) {
    // Exiv2 throws on anything it cannot read, and a picture Qt opens may still be beyond it.
    try {
        return readDescription(path);
    } catch (...) {
        return {};
    }
}

#include "page/pagelayout.h"

namespace pageLayout {
namespace {

const QString packageCdnHost = QStringLiteral("cdn.jsdelivr.net");
const QString jqueryCdnHost = QStringLiteral("code.jquery.com");

}  // namespace

QString FieldLine::with(QStringView field) const {
    QString line = start.toString();
    line += field;
    line += end;
    return line;
}

std::optional<QStringView> FieldLine::fieldOf(QStringView line) const {
    if (line.size() < start.size() + end.size() || !line.startsWith(start) || !line.endsWith(end))
        return std::nullopt;
    return line.sliced(start.size(), line.size() - start.size() - end.size());
}

QString ColouredLine::with(QStringView colour, QStringView text) const {
    QString line = start.toString();
    line += colour;
    line += separator;
    line += text;
    line += end;
    return line;
}

std::optional<ColouredLine::Fields> ColouredLine::fieldsOf(QStringView line) const {
    const std::optional<QStringView> inner = FieldLine{start, end}.fieldOf(line);
    const qsizetype cut = inner ? inner->lastIndexOf(separator) : -1;
    if (cut < 0) return std::nullopt;
    return Fields{inner->first(cut), inner->sliced(cut + separator.size())};
}

const QStringList& headStart() {
    static const QStringList lines = {
        QStringLiteral("<!doctype html>"),
        QStringLiteral("<html lang=\"en\">"),
        QStringLiteral("  <head>"),
        QStringLiteral("    <!-- Required meta tags -->"),
        QStringLiteral("    <meta charset=\"utf-8\">"),
        QStringLiteral("    <meta name=\"viewport\" content=\"width=device-width, initial-scale=1, "
                       "shrink-to-fit=no\">"),
        QString(),
        QStringLiteral("    <!-- Bootstrap CSS -->"),
        QStringLiteral("    <link rel=\"stylesheet\" href=\"https://") + packageCdnHost +
            QStringLiteral("/npm/bootstrap@4.5.3/dist/css/bootstrap.min.css\" "
                           "integrity=\"sha384-TX8t27EcRE3e/"
                           "ihU7zmQxVncDAy5uIKz4rEkgIXeMed4M0jlfIDPvg6uqKI2xXr2\" "
                           "crossorigin=\"anonymous\">"),
        QString(),
    };
    return lines;
}

const QStringList& headEnd() {
    static const QStringList lines = {
        QStringLiteral("   <!-- Popper.js, and Bootstrap JS -->"),
        QStringLiteral("    <script src=\"https://") + jqueryCdnHost +
            QStringLiteral("/jquery-3.5.1.slim.min.js\" "
                           "integrity=\"sha384-DfXdz2htPH0lsSSs5nCTpuj/"
                           "zy4C+OGpamoFVy38MVBnE+IbbVYUew+OrCXaRkfj\" "
                           "crossorigin=\"anonymous\"></script>"),
        QStringLiteral("    <script src=\"https://") + packageCdnHost +
            QStringLiteral("/npm/popper.js@1.16.1/dist/umd/popper.min.js\" "
                           "integrity=\"sha384-9/"
                           "reFTGAW83EW2RDu2S0VKaIzap3H66lZH81PoYlFhbGU+6BZp6G7niu735Sk7lN\" "
                           "crossorigin=\"anonymous\"></script>"),
        QStringLiteral("    <script src=\"https://") + packageCdnHost +
            QStringLiteral("/npm/bootstrap@4.5.3/dist/js/bootstrap.min.js\" "
                           "integrity=\"sha384-w1Q4orYjBQndcko6MimVbzY0tgp4pWB4lZ7lr30WKz0vr/"
                           "aWKhXdBNmNb5D92v7s\" "
                           "crossorigin=\"anonymous\"></script>"),
        QString(),
        QStringLiteral("  </head>"),
        QString(),
        QString(),
    };
    return lines;
}

const QStringList& carouselOpening() {
    static const QStringList lines = {
        QStringLiteral("<div id=\"simpleCarousel\" class=\"carousel slide carousel-fade\" "
                       "data-ride=\"carousel\">"),
        QString(),
        QString(),
        QStringLiteral("<ol class=\"carousel-indicators\">"),
        QString(),
    };
    return lines;
}

const QStringList& carouselControls() {
    static const QStringList lines = {
        QStringLiteral(
            "  <a class=\"carousel-control-prev\" href=\"#simpleCarousel\" role=\"button\" "
            "data-slide=\"prev\">"),
        QStringLiteral(
            "    <span class=\"carousel-control-prev-icon\" aria-hidden=\"true\"></span>"),
        QStringLiteral("    <span class=\"sr-only\">Previous</span>"),
        QStringLiteral("  </a>"),
        QStringLiteral(
            "  <a class=\"carousel-control-next\" href=\"#simpleCarousel\" role=\"button\" "
            "data-slide=\"next\">"),
        QStringLiteral(
            "    <span class=\"carousel-control-next-icon\" aria-hidden=\"true\"></span>"),
        QStringLiteral("    <span class=\"sr-only\">Next</span>"),
        QStringLiteral("  </a>"),
        QString(),
    };
    return lines;
}

}  // namespace pageLayout

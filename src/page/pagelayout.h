#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <optional>

// The gallery page's lines: the writer builds them from the templates here, and the reader
// recognises them by the same templates, so that a change to the page is made here. The reader
// trims every line it reads, so the indents are the writer's alone, as are the fixed lines that
// the reader passes over.
namespace pageLayout {

// A line with one field between fixed texts.
struct FieldLine {
    QStringView start;
    QStringView end;

    QString with(QStringView field) const;
    // The field of `line`, when `line` is built from this template.
    std::optional<QStringView> fieldOf(QStringView line) const;
};

// A line that gives a text a colour: start, colour, separator, text, end. The writer puts the
// text in escaped, without a '>', and every separator ends with one: so the last separator in
// a line is the one that follows the colour.
struct ColouredLine {
    QStringView start;
    QStringView separator;
    QStringView end;

    struct Fields {
        QStringView colour;
        QStringView text;
    };
    QString with(QStringView colour, QStringView text) const;
    std::optional<Fields> fieldsOf(QStringView line) const;
};

inline constexpr FieldLine kTitle{u"<title>", u"</title>"};
// The body's opening, with the page's background colour.
inline constexpr FieldLine kBody{u"<body style='background-color:", u";'>"};
// Opens the margins of a page that is not written full width.
inline constexpr QStringView kContainer = u"<div class='container'>";
inline constexpr ColouredLine kHeading{u"<h1 class='display-4' style='color:", u";'>", u"</h1>"};
inline constexpr ColouredLine kSubheading{u"<p class='h4' style='color:", u";'>", u"</p>"};
// A slide's indicator, by the slide's number; the first slide's starts active.
inline constexpr QStringView kIndicatorStart = u"<li data-target='#simpleCarousel' data-slide-to='";
inline constexpr FieldLine kIndicator{kIndicatorStart, u"'></li>"};
inline constexpr FieldLine kActiveIndicator{kIndicatorStart, u"' class='active'></li>"};
// A slide's picture, by its address.
inline constexpr FieldLine kImage{u"<img src='", u"' class='d-block w-100' alt=''>"};
inline constexpr ColouredLine kCaption{
    u"<div class='carousel-caption d-none d-md-block' style='color:", u"'><h5>", u"</h5></div>"};
inline constexpr QStringView kPageEnd = u"</html>";

// The fixed blocks of the page, line by line, with the blank lines that follow them.

// From the doctype to the style sheet; the title comes next.
const QStringList& headStart();
// The scripts and the end of the head.
const QStringList& headEnd();
// The carousel's element and the opening of its indicators. Its first line marks a page as
// Velmora's.
const QStringList& carouselOpening();
// The previous and next buttons.
const QStringList& carouselControls();

}  // namespace pageLayout

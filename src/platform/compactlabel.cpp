#include "platform/compactlabel.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <cmath>
#include <memory>

namespace {
// Rows closer than this would let the letters of one row run into the next.
constexpr qreal kTightestSpacing = 0.85;

int rowCount(const QTextDocument& document) {
    int rows = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        rows += block.layout()->lineCount();
    return rows;
}
}  // namespace

std::unique_ptr<QTextDocument> CompactLabel::layOut(int width) const {
    QString shown = text();
    while (shown.endsWith(QLatin1Char('\n'))) shown.chop(1);
    auto document = std::make_unique<QTextDocument>();
    document->setDefaultFont(font());
    document->setDocumentMargin(0);
    QTextOption option(alignment() & Qt::AlignHorizontal_Mask);
    option.setWrapMode(wordWrap() ? QTextOption::WordWrap : QTextOption::NoWrap);
    document->setDefaultTextOption(option);
    document->setPlainText(shown);
    document->setTextWidth(width);
    document->size();  // lays the text out at the usual spacing

    const qreal usual = fontMetrics().lineSpacing();
    const int rows = std::max(rowCount(*document), 1);
    const qreal spacing =
        std::clamp(qreal(contentsRect().height()) / rows, usual * kTightestSpacing, usual);
    QTextBlockFormat rowsApart;
    rowsApart.setLineHeight(spacing, QTextBlockFormat::FixedHeight);
    QTextCursor all(document.get());
    all.select(QTextCursor::Document);
    all.mergeBlockFormat(rowsApart);
    return document;
}

int CompactLabel::heightForWidth(int width) const {
    const QMargins frame = contentsMargins();
    const int room = width - frame.left() - frame.right();
    return int(std::ceil(layOut(room)->size().height())) + frame.top() + frame.bottom();
}

void CompactLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    drawFrame(&painter);
    const QRect room = contentsRect();
    const std::unique_ptr<QTextDocument> document = layOut(room.width());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    painter.translate(room.topLeft());
    document->documentLayout()->draw(&painter, context);
}

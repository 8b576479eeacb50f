// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/TitleBlock.h"

#include "render/MapParts.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QRectF>
#include <QTextLayout>

namespace vexlator::mapbook {

namespace {

/// Millimetres.
constexpr double labelSize = 1.75, valueSize = 2.7, largeSize = 3.7, inset = 1.1, rule = 0.13,
                 outlineWidth = 0.35;
/// Height of a row of one line, and what each further line adds to it, in shares.
constexpr double rowShare = 1, lineShare = 0.5, largeShare = 0.25;
constexpr Qt::GlobalColor ink = Qt::black;

QColor Muted() {
    return {0x5A, 0x62, 0x6B};
}

double ShareOf(const TitleRow& row) {
    double share = rowShare + lineShare * (row.lines - 1);
    for (const TitleField& field : row.fields)
        if (field.isLarge) return share + largeShare;
    return share;
}

/// The lines into which a text breaks at blanks; the last one is elided.
QStringList Broken(const QString& text, const QFont& font, double width, int most) {
    QFontMetricsF metrics(font);
    QTextLayout layout(text, font);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        bool isLast = lines.size() + 1 == most;
        QString rest = text.mid(line.textStart(), isLast ? -1 : line.textLength()).trimmed();
        lines << metrics.elidedText(rest, Qt::ElideRight, width);
        if (isLast) break;
    }
    layout.endLayout();
    return lines;
}

void PaintField(QPainter& painter, const QRectF& cell, double millimetre, const TitleField& field,
                int lines) {
    double left = cell.left() + inset * millimetre, width = cell.width() - 2 * inset * millimetre;
    painter.setFont(render::MapFont(labelSize * millimetre));
    painter.setPen(Muted());
    painter.drawText(QPointF(left, cell.top() + (inset + 0.75 * labelSize) * millimetre),
                     QString::fromStdString(field.label));
    double size = (field.isLarge ? largeSize : valueSize) * millimetre;
    QFont font = render::MapFont(size, field.isLarge);
    painter.setFont(font);
    painter.setPen(ink);
    QStringList texts = Broken(QString::fromStdString(field.value), font, width, lines);
    double baseline = cell.bottom() - 1.5 * inset * millimetre - 1.3 * size * (lines - 1);
    for (const QString& text : texts) {
        painter.drawText(QPointF(left, baseline), text);
        baseline += 1.3 * size;
    }
}

void PaintRow(QPainter& painter, const QRectF& area, double millimetre, const TitleRow& row) {
    double width = area.width() / double(row.fields.size());
    for (std::size_t i = 0; i < row.fields.size(); ++i) {
        QRectF cell(area.left() + width * double(i), area.top(), width, area.height());
        if (i > 0) {
            painter.setPen(QPen(Muted(), rule * millimetre));
            painter.drawLine(cell.topLeft(), cell.bottomLeft());
        }
        PaintField(painter, cell, millimetre, row.fields[i], row.lines);
    }
}

}  // namespace

void PaintTitleBlock(QPainter& painter, const QRectF& area, double pixelsPerMillimetre,
                     const std::vector<TitleRow>& rows) {
    double shares = 0, top = area.top();
    for (const TitleRow& row : rows) shares += ShareOf(row);
    for (const TitleRow& row : rows) {
        double height = area.height() * ShareOf(row) / shares;
        if (&row != &rows.front()) {
            painter.setPen(QPen(Muted(), rule * pixelsPerMillimetre));
            painter.drawLine(QPointF(area.left(), top), QPointF(area.right(), top));
        }
        PaintRow(painter, {area.left(), top, area.width(), height}, pixelsPerMillimetre, row);
        top += height;
    }
    painter.setPen(QPen(ink, outlineWidth * pixelsPerMillimetre));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area);
}

}  // namespace vexlator::mapbook

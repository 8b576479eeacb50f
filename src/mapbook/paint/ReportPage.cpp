// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/paint/ReportPage.h"

#include "mapbook/Symbols.h"
#include "mapbook/paint/TitleBlock.h"
#include "render/DrawingScene.h"
#include "render/MapParts.h"
#include "render/Painter.h"
#include "util/Paths.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QRectF>
#include <algorithm>

namespace vexlator::mapbook {

namespace {

/// Millimetres.
constexpr double border = 12, headHeight = 20, titleBlockHeight = 22, rowHeight = 6, letters = 2.5,
                 directionShare = 1.1;

render::Scene ArrowScene() {
    drawing::Drawing symbol;
    DrawArrow(symbol);
    return render::SceneOfDrawing(symbol, {});
}

class ReportTable {
public:
    ReportTable(QPainter& painter, const QRectF& area, double millimetre)
        : painter_(painter), area_(area), millimetre_(millimetre), arrow_(ArrowScene()) {
        for (const SurveyColumn& column : surveyColumns) shares_ += column.share;
    }

    void Paint(std::span<const SurveyEntry> entries) {
        Row(0, true);
        for (std::size_t i = 0; i < surveyColumns.size(); ++i)
            Write(CellOf(0, i), std::string(surveyColumns[i].label), true);
        Write(CellOf(0, surveyColumns.size()), "Direction", true);
        for (std::size_t row = 0; row < entries.size(); ++row) {
            Row(row + 1, false);
            for (std::size_t i = 0; i < surveyColumns.size(); ++i)
                Write(CellOf(row + 1, i), entries[row].values[i], false);
            Arrows(CellOf(row + 1, surveyColumns.size()), entries[row].direction);
        }
        Frame(entries.size() + 1);
    }

private:
    double RowHeight() const { return rowHeight * millimetre_; }
    double ColumnLeft(std::size_t column) const {
        double share = 0;
        for (std::size_t i = 0; i < column; ++i) share += surveyColumns[i].share;
        return area_.left() + area_.width() * share / shares_;
    }
    QRectF CellOf(std::size_t row, std::size_t column) const {
        double left = ColumnLeft(column),
               right = column < surveyColumns.size() ? ColumnLeft(column + 1) : area_.right();
        return {left, area_.top() + RowHeight() * double(row), right - left, RowHeight()};
    }
    void Row(std::size_t row, bool isHead) {
        QRectF band(area_.left(), area_.top() + RowHeight() * double(row), area_.width(), RowHeight());
        if (isHead || row % 2 == 0)
            painter_.fillRect(band, isHead ? QColor(0xDC, 0xE3, 0xEA) : QColor(0xF5, 0xF7, 0xF9));
    }
    void Write(const QRectF& cell, const std::string& text, bool isBold) {
        QFont font = render::MapFont(letters * millimetre_, isBold);
        QFontMetricsF metrics(font);
        painter_.setFont(font);
        painter_.setPen(Qt::black);
        painter_.drawText(
            QPointF(cell.left() + millimetre_, cell.center().y() + metrics.capHeight() / 2),
            metrics.elidedText(QString::fromStdString(text), Qt::ElideRight, cell.width() - 2 * millimetre_));
    }
    void Arrows(const QRectF& cell, std::string_view direction) {
        const double size = 0.75 * RowHeight();
        double left = cell.left() + 2 * millimetre_;
        for (double degrees : ArrowsOf(direction)) {
            painter_.save();
            painter_.translate(left + size / 2, cell.center().y());
            painter_.rotate(degrees);
            painter_.translate(-size / 2, -size / 2);
            render::PaintOptions options;
            options.pixelsPerMillimetre = millimetre_;
            int side = static_cast<int>(size);
            PaintScene(arrow_, render::View(arrow_.Extents(), side, side), painter_, options);
            painter_.restore();
            left += size;
        }
    }
    void Frame(std::size_t rows) {
        painter_.setBrush(Qt::NoBrush);
        painter_.setPen(QPen(QColor(0x9A, 0xA4, 0xAE), 0.13 * millimetre_));
        double bottom = area_.top() + RowHeight() * double(rows);
        for (std::size_t i = 1; i <= surveyColumns.size(); ++i)
            painter_.drawLine(QPointF(ColumnLeft(i), area_.top()), QPointF(ColumnLeft(i), bottom));
        painter_.setPen(QPen(Qt::black, 0.35 * millimetre_));
        painter_.drawRect(QRectF(area_.topLeft(), QPointF(area_.right(), bottom)));
    }

    QPainter& painter_;
    QRectF area_;
    double millimetre_;
    render::Scene arrow_;
    double shares_ = directionShare;
};

/// As large as fits. Returns its width; 0 without a readable file.
double PaintLogo(QPainter& painter, const std::string& path, const QRectF& room, bool isRight) {
    QImage logo(QString::fromStdString(path));
    if (logo.isNull()) return 0;
    double scale = std::min(room.width() / logo.width(), room.height() / logo.height());
    double width = logo.width() * scale;
    painter.drawImage(
        QRectF(isRight ? room.right() - width : room.left(), room.top(), width, logo.height() * scale), logo);
    return width;
}

}  // namespace

void PaintReport(QPainter& painter, const BookPlan& plan, const SurveyReport& report, const BookPage& page,
                 double pixelsPerMillimetre) {
    const double mm = pixelsPerMillimetre;
    QRectF paper(border * mm, border * mm, (page.layout.width - 2 * border) * mm,
                 (page.layout.height - 2 * border) * mm);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::TextAntialiasing |
                           QPainter::SmoothPixmapTransform);
    QRectF head(paper.left(), paper.top(), paper.width() / 5, 0.8 * headHeight * mm);
    double left = PaintLogo(painter, plan.logos.first, head, false);
    head.moveRight(paper.right());
    PaintLogo(painter, plan.logos.second, head, true);
    painter.setFont(render::MapFont(6 * mm, true));
    painter.setPen(Qt::black);
    painter.drawText(QPointF(paper.left() + left + (left > 0 ? 5 * mm : 0), paper.top() + 8 * mm),
                     QString::fromUtf8(surveyTitle.data(), qsizetype(surveyTitle.size())));
    double top = paper.top() + headHeight * mm;
    PaintTitleBlock(painter, {paper.left(), top, paper.width(), titleBlockHeight * mm}, mm,
                    {{{{"Inspector", report.inspector},
                       {"ELR", report.elr},
                       {"Job Name", plan.titles.name},
                       {"Date Produced", plan.date}}},
                     {{{"Project", plan.titles.project},
                       {"Job Description", plan.titles.description},
                       {"Layout", page.name},
                       {"Layout Number", page.count}}}});
    top += (titleBlockHeight + 4) * mm;
    std::size_t first = page.firstEntry, count = std::min(reportRows, report.entries.size() - first);
    ReportTable(painter, {paper.left(), top, paper.width(), paper.bottom() - top}, mm)
        .Paint(std::span(report.entries).subspan(first, count));
}

}  // namespace vexlator::mapbook

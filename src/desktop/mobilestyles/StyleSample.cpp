// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/mobilestyles/StyleSample.h"

#include <QPainter>
#include <QPainterPath>
#include <functional>
#include <numbers>

namespace vexlator::desktop {

namespace {

using background::MobilePattern;
using background::MobileStyleLook;
using background::MobileSymbol;

constexpr double ratios[] = {1, 1.5, 2, 3};
constexpr QSize iconSize(40, 16);
constexpr double leastSymbol = 7;  ///< pixels, so that it can be told from others

Qt::PenStyle PenStyleOf(MobilePattern pattern) {
    switch (pattern) {
        case MobilePattern::Dash:
            return Qt::DashLine;
        case MobilePattern::Dot:
            return Qt::DotLine;
        case MobilePattern::DashDot:
            return Qt::DashDotLine;
        default:
            return Qt::SolidLine;
    }
}

Qt::BrushStyle BrushStyleOf(MobilePattern pattern) {
    switch (pattern) {
        case MobilePattern::None:
            return Qt::NoBrush;
        case MobilePattern::Horizontal:
            return Qt::HorPattern;
        case MobilePattern::Vertical:
            return Qt::VerPattern;
        case MobilePattern::Cross:
            return Qt::CrossPattern;
        case MobilePattern::Diagonal:
            return Qt::BDiagPattern;
        case MobilePattern::DiagonalCross:
            return Qt::DiagCrossPattern;
        default:
            return Qt::SolidPattern;
    }
}

/// Corners on a circle, every `step`-th of them joined to the next.
QPainterPath Corners(int count, int step, double firstAngle) {
    QPolygonF corners;
    for (int i = 0; i < count; ++i) {
        double angle = firstAngle + 2 * std::numbers::pi * i * step / count;
        corners << QPointF(std::cos(angle) / 2, -std::sin(angle) / 2);
    }
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

/// In a square of one unit around the origin. Crosses are lines.
QPainterPath SymbolPath(MobileSymbol symbol) {
    QPainterPath path;
    switch (symbol) {
        case MobileSymbol::Circle:
            path.addEllipse(QPointF(0, 0), 0.5, 0.5);
            break;
        case MobileSymbol::Square:
            path.addRect(-0.5, -0.5, 1, 1);
            break;
        case MobileSymbol::Triangle:
            return Corners(3, 1, std::numbers::pi / 2);
        case MobileSymbol::Diamond:
            return Corners(4, 1, 0);
        case MobileSymbol::Star:
            return Corners(5, 2, std::numbers::pi / 2);
        case MobileSymbol::Cross:
            path.addRect(-0.1, -0.5, 0.2, 1);
            path.addRect(-0.5, -0.1, 1, 0.2);
            path.setFillRule(Qt::WindingFill);
            return QTransform().rotate(45).map(path);
        case MobileSymbol::Plus:
            path.addRect(-0.1, -0.5, 0.2, 1);
            path.addRect(-0.5, -0.1, 1, 0.2);
            path.setFillRule(Qt::WindingFill);
            break;
    }
    return path;
}

void PaintPoint(QPainter& painter, const QRectF& place, const MobileStyleLook& look) {
    double size = std::min(std::max(leastSymbol, look.width * 2), place.height() - 4);
    painter.translate(place.center());
    painter.scale(size, size);
    painter.fillPath(SymbolPath(look.symbol), QColor(QRgb(look.rgb)));
}

void PaintLine(QPainter& painter, const QRectF& place, const MobileStyleLook& look) {
    QRectF inner = place.adjusted(4, 4, -4, -4);
    QPen pen(QColor(QRgb(look.rgb)), std::min(look.width, inner.height()), PenStyleOf(look.pattern),
             Qt::FlatCap, Qt::MiterJoin);
    painter.setPen(pen);
    painter.drawLine(QPointF(inner.left(), place.center().y()), QPointF(inner.right(), place.center().y()));
}

void PaintPatch(QPainter& painter, const QRectF& place, const MobileStyleLook& look) {
    QColor colour{QRgb(look.rgb)}, inside = colour;
    Qt::BrushStyle style = BrushStyleOf(look.pattern);
    if (style == Qt::SolidPattern) inside.setAlpha(0x59);
    painter.setBrush(QBrush(inside, style));
    double width = std::min(look.width, place.height() / 4);
    painter.setPen(QPen(colour, width, PenStyleOf(look.pattern)));
    painter.drawRect(place.adjusted(3, 3, -3, -3));
}

QIcon Drawn(const std::function<void(QPainter&)>& draw) {
    QIcon icon;
    for (double ratio : ratios) {
        QPixmap pixmap(iconSize * ratio);
        pixmap.setDevicePixelRatio(ratio);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        draw(painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

QSize SampleSize() {
    return iconSize;
}

void PaintStyleSample(QPainter& painter, const QRectF& place, const QString& type,
                      const MobileStyleLook& look) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setClipRect(place);
    painter.setPen(QPen(QColor(0, 0, 0, 60), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    if (type == QLatin1String("P"))
        PaintPoint(painter, place, look);
    else if (type == QLatin1String("S"))
        PaintLine(painter, place, look);
    else
        PaintPatch(painter, place, look);
    painter.restore();
}

QIcon StyleIcon(const QString& type, const MobileStyleLook& look) {
    return Drawn([&](QPainter& painter) {
        PaintStyleSample(painter, QRectF(QPointF(), QSizeF(iconSize)), type, look);
    });
}

QIcon ColourIcon(const QString& colour) {
    return Drawn([&](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(QColor(128, 128, 128), 1));
        painter.setBrush(QColor(QRgb(background::RgbOfColour(colour.toStdString()))));
        painter.drawRoundedRect(QRectF(0.5, 1.5, iconSize.width() - 1, iconSize.height() - 3), 3, 3);
    });
}

}  // namespace vexlator::desktop

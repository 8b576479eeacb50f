// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/Icons.h"

#include <QPainter>
#include <QSvgRenderer>

namespace vexlator::desktop {

namespace {

/// Drawings in a square of 24 by 24.
const char* ShapeOf(Drawn what) {
    switch (what) {
        case Drawn::Open:
            return "<path d='M3 19V6h6l2 2h8v3M3 19l3-8h16l-3 8z'/>";
        case Drawn::ZoomIn:
            return "<circle cx='10' cy='10' r='6.5'/><path d='M15 15l6 6M10 7v6M7 10h6'/>";
        case Drawn::ZoomOut:
            return "<circle cx='10' cy='10' r='6.5'/><path d='M15 15l6 6M7 10h6'/>";
        case Drawn::Fit:
            return "<path d='M4 9V4h5M15 4h5v5M20 15v5h-5M9 20H4v-5M9 9h6v6H9z'/>";
        case Drawn::Rectangle:
            return "<path d='M4 7V4h3M10 4h4M17 4h3v3M20 10v2M4 10v4M4 17v3h3M10 20h2'/>"
                   "<circle cx='16' cy='16' r='3.5'/><path d='M18.6 18.6L22 22'/>";
        case Drawn::Layers:
            return "<path d='M12 3l9 5-9 5-9-5zM3 12.5l9 5 9-5M3 17l9 5 9-5'/>";
        case Drawn::Feature:
            return "<path d='M5 3h14v18H5zM9 8h6M9 12h6M9 16h4'/>";
    }
    return "";
}

constexpr double ratios[] = {1, 1.5, 2, 3};
constexpr int iconSide = 24, swatchWidth = 22, swatchHeight = 16;

QPixmap Transparent(double width, double height, double ratio) {
    QPixmap pixmap(int(width * ratio), int(height * ratio));
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

void PaintSwatch(QPainter& painter, const render::SceneLayer& layer) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QColor(190, 190, 190));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(QRectF(0.5, 0.5, swatchWidth - 1, swatchHeight - 1), 3, 3);
    QColor line = QColor::fromRgba(layer.pen.line), fill = QColor::fromRgba(layer.pen.fill);
    painter.setPen(layer.pen.line ? QPen(line, layer.pen.weight > 50 ? 2.5 : 1.5) : QPen(Qt::NoPen));
    painter.setBrush(layer.pen.fill ? QBrush(fill) : QBrush(Qt::NoBrush));
    switch (layer.kind) {
        case render::ItemKind::Area:
        case render::ItemKind::Image:
        case render::ItemKind::Ring:
            return painter.drawRect(QRectF(5, 4, swatchWidth - 10, swatchHeight - 8));
        case render::ItemKind::Line:
            return painter.drawPolyline(QPolygonF{{4, 11}, {9, 5}, {13, 10}, {18, 5}});
        case render::ItemKind::Text:
            painter.setPen(line);
            return painter.drawText(QRectF(0, 0, swatchWidth, swatchHeight), Qt::AlignCenter,
                                    QStringLiteral("A"));
        case render::ItemKind::Circle:
        case render::ItemKind::Arc:
            return painter.drawEllipse(QPointF(swatchWidth / 2.0, swatchHeight / 2.0), 4.5, 4.5);
        default:
            painter.setBrush(line);
            painter.drawEllipse(QPointF(swatchWidth / 2.0, swatchHeight / 2.0), 3, 3);
    }
}

}  // namespace

QIcon IconOf(Drawn what, const QPalette& palette) {
    QString text = QStringLiteral(
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'><g fill='none' "
        "stroke='%1' stroke-width='1.7' stroke-linecap='round' "
        "stroke-linejoin='round'>%2</g></svg>");
    QIcon icon;
    for (QIcon::Mode mode : {QIcon::Normal, QIcon::Disabled}) {
        auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QColor colour = palette.color(group, QPalette::ButtonText);
        QSvgRenderer renderer(text.arg(colour.name(), QLatin1String(ShapeOf(what))).toUtf8());
        for (double ratio : ratios) {
            QPixmap pixmap = Transparent(iconSide, iconSide, ratio);
            QPainter painter(&pixmap);
            renderer.render(&painter, QRectF(0, 0, iconSide, iconSide));
            painter.end();
            icon.addPixmap(pixmap, mode);
        }
    }
    return icon;
}

QIcon SwatchOf(const render::SceneLayer& layer) {
    QIcon icon;
    for (double ratio : ratios) {
        QPixmap pixmap = Transparent(swatchWidth, swatchHeight, ratio);
        QPainter painter(&pixmap);
        PaintSwatch(painter, layer);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/mobilestyles/StyleSample.h"

#include "render/Painter.h"
#include "render/package/StylePens.h"

#include <QPainter>
#include <algorithm>
#include <functional>
#include <vector>

namespace vexlator::desktop {

namespace {

using background::MobileStyleLook;
using render::ItemKind;
using render::PlanePoint;

constexpr double ratios[] = {1, 1.5, 2, 3};
constexpr QSize iconSize(40, 16);
constexpr double inset = 4;  ///< pixels between a sample and the edge of its paper
constexpr int mostBends = 5;

/// A point, a line that bends where there is room for it, or a patch, in the middle of the paper.
ItemKind ShapeFor(const QString& type, const QSizeF& paper, std::vector<PlanePoint>& course) {
    double right = paper.width() / 2 - inset, up = paper.height() / 2 - inset;
    if (type == QLatin1String("P")) {
        course = {{0, 0}};
        return ItemKind::Dot;
    }
    if (type == QLatin1String("S")) {
        bool isLow = up < 4 * inset;
        for (int i = 0; i <= mostBends; ++i)
            course.push_back({right * (2.0 * i / mostBends - 1), isLow ? 0 : i % 2 == 0 ? -up / 2 : up / 2});
        return ItemKind::Line;
    }
    course = {{-right, -up}, {right, -up}, {right, up}, {-right, up}};
    return ItemKind::Area;
}

render::Scene SampleScene(const QString& type, const MobileStyleLook& look, const QSizeF& paper) {
    std::vector<PlanePoint> course;
    ItemKind kind = ShapeFor(type, paper, course);
    render::SceneBuilder builder;
    std::uint32_t layer = builder.AddLayer("");
    std::uint32_t pen = builder.AddPen(render::PenOfMobileStyle(look, PenColumn(kind)));
    if (kind == ItemKind::Dot)
        builder.AddDot(layer, pen, course.front());
    else
        builder.AddCourse(layer, pen, kind, course);
    return builder.Take();
}

/// Pixels of the style that are as large as the paper allows.
MobileStyleLook Fitted(MobileStyleLook look, const QSizeF& paper, double enlargement) {
    double most = (paper.height() - inset) / enlargement;
    look.width = std::min(look.width, look.SymbolSize() > most ? most / 2 : most);
    return look;
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
        // A style in a chosen row has its own colours too.
        for (QIcon::Mode mode : {QIcon::Normal, QIcon::Selected}) icon.addPixmap(pixmap, mode);
    }
    return icon;
}

}  // namespace

QSize SampleSize() {
    return iconSize;
}

void PaintStyleSample(QPainter& painter, const QRectF& place, const QString& type,
                      const MobileStyleLook& look, double enlargement) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(0, 0, 0, 60), 1));
    painter.setBrush(Qt::white);
    painter.drawRoundedRect(place.adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.translate(place.topLeft());
    render::PaintOptions options;
    options.pixelsPerMillimetre *= enlargement;
    QSize size = place.size().toSize();
    PaintScene(SampleScene(type, Fitted(look, place.size(), enlargement), place.size()),
               render::View(PlanePoint{0, 0}, 1, size.width(), size.height()), painter, options);
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

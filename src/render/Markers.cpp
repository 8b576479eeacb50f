// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/Markers.h"

#include <QPainterPath>
#include <QPolygonF>
#include <QTransform>
#include <cmath>
#include <numbers>

namespace vexlator::render {

namespace {

constexpr double upwards = std::numbers::pi / 2;

/// Corners on a circle, every `step`-th of them joined to the next.
QPainterPath Corners(int count, int step, double firstAngle) {
    QPolygonF corners;
    for (int i = 0; i < count; ++i) {
        double angle = firstAngle + 2 * std::numbers::pi * i * step / count;
        corners << QPointF(std::cos(angle) / 2, -std::sin(angle) / 2);
    }
    QPainterPath path;
    path.addPolygon(corners);
    path.closeSubpath();
    return path;
}

QPainterPath PlusPath() {
    QPainterPath path;
    path.addRect(-0.1, -0.5, 0.2, 1);
    path.addRect(-0.5, -0.1, 1, 0.2);
    return path;
}

}  // namespace

QPainterPath MarkerPath(Marker marker) {
    QPainterPath path;
    switch (marker) {
        case Marker::Usual:
        case Marker::Circle:
            path.addEllipse(QPointF(0, 0), 0.5, 0.5);
            break;
        case Marker::Square:
            path.addRect(-0.5, -0.5, 1, 1);
            break;
        case Marker::Triangle:
            path = Corners(3, 1, upwards);
            break;
        case Marker::Diamond:
            path = Corners(4, 1, 0);
            break;
        case Marker::Star:
            path = Corners(5, 2, upwards);
            break;
        case Marker::Cross:
            path = QTransform().rotate(45).map(PlusPath());
            break;
        case Marker::Plus:
            path = PlusPath();
            break;
    }
    path.setFillRule(Qt::WindingFill);
    return path;
}

}  // namespace vexlator::render

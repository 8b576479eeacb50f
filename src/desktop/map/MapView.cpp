// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/MapView.h"

#include "render/Hit.h"
#include "render/RoundLengths.h"
#include "render/UsualExtent.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <cmath>

namespace vexlator::desktop {

namespace {

using render::Box;
using render::PlanePoint;
using render::View;

constexpr double reach = 6;           ///< of the pointer, in desktop pixels
constexpr double shareOfArrow = 0.1;  ///< of the view
constexpr int shareAround = 2;        ///< margin of the picture beyond each side: half of the view
constexpr double room = 0.03;         ///< margin around the whole extent

const QColor hoverColour(255, 150, 0), selectionColour(0, 120, 215);

Box WithRoom(const Box& box) {
    double by = room * std::max(box.maxX - box.minX, box.maxY - box.minY);
    return {box.minX - by, box.minY - by, box.maxX + by, box.maxY + by};
}

bool Holds(const Box& outer, const Box& inner) {
    // A picture shows the view that it was painted for, however its coordinates are rounded.
    double slack = 1e-6 * (inner.maxX - inner.minX);
    return outer.minX <= inner.minX + slack && outer.minY <= inner.minY + slack &&
           outer.maxX >= inner.maxX - slack && outer.maxY >= inner.maxY - slack;
}

bool HasSameScale(const View& a, const View& b) {
    return std::abs(a.Scale() - b.Scale()) <= 1e-9 * b.Scale();
}

}  // namespace

MapView::MapView(QWidget* parent)
    : QWidget(parent),
      view_({0, 0, 1, 1}, 1, 1),
      worker_(std::make_unique<PaintWorker>([this](Picture picture) {
          QMetaObject::invokeMethod(
              this, [this, picture = std::move(picture)] { Take(picture); }, Qt::QueuedConnection);
      })) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(160, 120);
    setAccessibleName(QCoreApplication::translate("MapView", "Map"));
    UseCursor();
}

MapView::~MapView() = default;

void MapView::SetScene(std::shared_ptr<const render::Scene> scene) {
    scene_ = std::move(scene);
    hiddenLayers_.clear();
    pens_.reset();
    whole_.reset();
    coarse_.reset();
    leastNumber_ = number_ + 1;
    Select(std::nullopt);
    Hover(std::nullopt);
    Fit();
}

void MapView::SetHiddenLayers(std::vector<bool> hidden) {
    hiddenLayers_ = std::move(hidden);
    leastNumber_ = number_ + 1;
    coarse_.reset();
    Hover(std::nullopt);
    Order();
}

void MapView::SetStyle(render::LayerPens pens, std::vector<bool> hidden) {
    if (pens_ && *pens_ == pens && hiddenLayers_ == hidden) return;
    pens_ = std::make_shared<render::LayerPens>(std::move(pens));
    SetHiddenLayers(std::move(hidden));
}

void MapView::SetNotice(const QString& text) {
    notice_ = text;
    update();
}

void MapView::Fit() {
    if (scene_) SetView(View(WithRoom(FindUsualExtent(*scene_).extent), view_.Width(), view_.Height()));
    isFitted_ = true;
    update();
}

void MapView::ZoomBy(double factor) {
    SetView(view_.Zoomed({view_.Width() / 2.0, view_.Height() / 2.0}, factor));
}

void MapView::ZoomToRectangle() {
    takesRectangle_ = true;
    UseCursor();
}

void MapView::ShowGround(const Box& ground) {
    SetView(View(ground, view_.Width(), view_.Height()));
}

void MapView::Select(std::optional<std::size_t> item) {
    selected_ = item;
    update();
    if (selected) selected(item);
}

void MapView::Hover(std::optional<std::size_t> item) {
    if (hovered_ == item) return;
    hovered_ = item;
    update();
    if (hovered) hovered(item);
}

std::optional<std::size_t> MapView::ItemUnder(QPointF place) const {
    if (!scene_) return std::nullopt;
    return ItemAt(*scene_, view_, PixelAt(place), reach * devicePixelRatioF(), hiddenLayers_);
}

double MapView::PixelsPerMillimetre() const {
    return logicalDpiX() * devicePixelRatioF() / 25.4;
}

double MapView::ScaleNumber() const {
    return 1000 * PixelsPerMillimetre() / view_.Scale();
}

PlanePoint MapView::PixelAt(QPointF place) const {
    return {place.x() * devicePixelRatioF(), place.y() * devicePixelRatioF()};
}

// --- Painting

void MapView::SetView(const View& view) {
    view_ = view;
    isFitted_ = false;
    coarse_.reset();
    if (!IsPainted() || IsNearItsEdge()) Order();
    update();
    if (viewChanged) viewChanged();
}

bool MapView::IsPainted() const {
    return whole_ && whole_->number >= leastNumber_ && HasSameScale(whole_->view, view_) &&
           Holds(whole_->view.Ground(), view_.Ground());
}

bool MapView::IsNearItsEdge() const {
    double edge = std::min(view_.Width(), view_.Height()) / 8.0;
    return !Holds(whole_->view.Ground(),
                  view_.Resized(view_.Width() + int(2 * edge), view_.Height() + int(2 * edge)).Ground());
}

void MapView::Order() {
    update();
    if (!scene_ || width() < 1 || height() < 1) return;
    PaintOrder order{scene_,
                     view_,
                     std::max(view_.Width(), view_.Height()) / shareAround / 2,
                     IsPainted(),
                     hiddenLayers_,
                     pens_,
                     PixelsPerMillimetre(),
                     ++number_};
    worker_->Paint(std::move(order));
}

void MapView::Take(Picture picture) {
    // A picture for an earlier order may have been on its way.
    if (picture.number < number_) return;
    if (picture.isCoarse) {
        coarse_ = std::move(picture);
    } else {
        coarse_.reset();
        whole_ = std::move(picture);
        if (painted) painted();
    }
    update();
}

void MapView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), scene_ ? QColor(Qt::white) : palette().color(QPalette::Base));
    if (!scene_) return DrawNotice(painter);
    painter.save();
    painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
    if (whole_) DrawPicture(painter, *whole_);
    if (coarse_) DrawPicture(painter, *coarse_);
    painter.setRenderHint(QPainter::Antialiasing);
    if (selected_) DrawItem(painter, *selected_, selectionColour, 4);
    if (hovered_ && hovered_ != selected_) DrawItem(painter, *hovered_, hoverColour, 3);
    painter.restore();
    DrawScaleBar(painter);
    if (drag_ == Drag::Rectangle) {
        QColor inside = selectionColour;
        inside.setAlpha(40);
        painter.setPen(QPen(selectionColour, 1, Qt::DashLine));
        painter.setBrush(inside);
        painter.drawRect(QRectF(pressed_, last_).normalized());
    }
}

void MapView::DrawPicture(QPainter& painter, const Picture& picture) const {
    PlanePoint corner = view_.ToPixels()(picture.view.ToGround({0, 0}));
    if (HasSameScale(picture.view, view_)) {
        QPointF at(std::round(corner.x), std::round(corner.y));
        if (std::abs(at.x()) < 1e6 && std::abs(at.y()) < 1e6) painter.drawImage(at, picture.image);
        return;
    }
    // Only the visible part, because the whole can exceed the numeric range of a painter.
    double factor = view_.Scale() / picture.view.Scale();
    QRectF seen =
        QRectF(-corner.x / factor, -corner.y / factor, view_.Width() / factor, view_.Height() / factor)
            .intersected(QRectF(picture.image.rect()));
    if (seen.isEmpty()) return;
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QRectF(corner.x + seen.x() * factor, corner.y + seen.y() * factor,
                             seen.width() * factor, seen.height() * factor),
                      picture.image, seen);
    painter.restore();
}

void MapView::DrawItem(QPainter& painter, std::size_t item, const QColor& colour, double width) const {
    const double ratio = devicePixelRatioF();
    render::PixelBox window{0, 0, double(view_.Width()), double(view_.Height())};
    QPainterPath path;
    render::Course part;
    for (const render::Course& course : OutlineOf(*scene_, item, view_)) {
        if (course.size() == 1 && window.Holds(course[0]))
            path.addEllipse(QPointF(course[0].x, course[0].y), 5 * ratio, 5 * ratio);
        ForEachPartIn(window.Grown(16 * ratio), course, part, [&](const render::Course& seen) {
            path.moveTo(seen[0].x, seen[0].y);
            for (PlanePoint point : seen) path.lineTo(point.x, point.y);
        });
    }
    QColor halo(Qt::white);
    halo.setAlpha(200);
    for (const QPen& pen : {QPen(halo, (width + 3) * ratio), QPen(colour, width * ratio)}) {
        QPen round = pen;
        round.setCapStyle(Qt::RoundCap);
        round.setJoinStyle(Qt::RoundJoin);
        painter.strokePath(path, round);
    }
}

void MapView::DrawScaleBar(QPainter& painter) const {
    constexpr double off = 14, height = 6, most = 180;
    double perUnit = view_.Scale() / devicePixelRatioF(), length = render::RoundStep(most / perUnit);
    QString text = QString::fromStdString(render::LengthText(length, render::IsInDegrees(view_.Ground())));
    QRectF bar(off, this->height() - off - height, length * perUnit, height);
    QFontMetricsF metrics(font());
    QRectF plate = bar.adjusted(-8, -metrics.height() - 5, 8, 7);
    plate.setWidth(std::max(plate.width(), metrics.horizontalAdvance(text) + 16));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(255, 255, 255, 215));
    painter.drawRoundedRect(plate, 4, 4);
    painter.setPen(QPen(QColor(40, 40, 40), 1.5));
    painter.drawPolyline(QPolygonF{bar.topLeft(), bar.bottomLeft(), bar.bottomRight(), bar.topRight()});
    painter.drawText(QPointF(bar.left(), bar.top() - 5), text);
}

void MapView::DrawNotice(QPainter& painter) const {
    painter.setPen(palette().color(QPalette::PlaceholderText));
    painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, notice_);
}

// --- Mouse and keys

void MapView::resizeEvent(QResizeEvent*) {
    bool wasFitted = isFitted_;
    const double ratio = devicePixelRatioF();
    SetView(view_.Resized(std::max(1, int(std::lround(width() * ratio))),
                          std::max(1, int(std::lround(height() * ratio)))));
    if (wasFitted) Fit();
}

void MapView::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 240;  // eighths of a degree that double the scale
    SetView(view_.Zoomed(PixelAt(event->position()), std::exp2(event->angleDelta().y() / notch)));
    event->accept();
}

void MapView::mousePressEvent(QMouseEvent* event) {
    pressed_ = last_ = event->position();
    bool isLeft = event->button() == Qt::LeftButton;
    if (isLeft && (takesRectangle_ || event->modifiers().testFlag(Qt::ShiftModifier)))
        drag_ = Drag::Rectangle;
    else if (event->button() == Qt::MiddleButton || (isLeft && spaceIsDown_))
        drag_ = Drag::Pan;
    else if (isLeft)
        drag_ = Drag::Maybe;
    UseCursor();
}

void MapView::mouseMoveEvent(QMouseEvent* event) {
    QPointF place = event->position();
    if (drag_ == Drag::Maybe && (place - pressed_).manhattanLength() >= QApplication::startDragDistance()) {
        drag_ = Drag::Pan;
        UseCursor();
    }
    if (drag_ == Drag::Pan || (drag_ == Drag::None && spaceIsDown_)) {
        // Whole pixels, so that the picture need not be painted again.
        PlanePoint from = PixelAt(last_), to = PixelAt(place);
        SetView(view_.Panned(std::round(to.x) - std::round(from.x), std::round(to.y) - std::round(from.y)));
    }
    last_ = place;
    if (drag_ == Drag::Rectangle) update();
    if (drag_ == Drag::None && !spaceIsDown_) Hover(ItemUnder(place));
    if (pointed) pointed(view_.ToGround(PixelAt(place)));
}

void MapView::mouseReleaseEvent(QMouseEvent* event) {
    EndDrag(event->position());
    UseCursor();
    update();
}

void MapView::EndDrag(QPointF place) {
    Drag drag = std::exchange(drag_, Drag::None);
    if (drag == Drag::Maybe) {
        if (clicked) clicked(view_.ToGround(PixelAt(place)));
        return Select(ItemUnder(place));
    }
    if (drag != Drag::Rectangle) return;
    takesRectangle_ = false;
    QRectF wanted = QRectF(pressed_, place).normalized();
    if (wanted.width() < 3 || wanted.height() < 3) return;
    PlanePoint least = view_.ToGround(PixelAt(wanted.bottomLeft()));
    PlanePoint most = view_.ToGround(PixelAt(wanted.topRight()));
    ShowGround({least.x, least.y, most.x, most.y});
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        SetView(view_.Zoomed(PixelAt(event->position()), zoomStep * zoomStep));
}

void MapView::leaveEvent(QEvent*) {
    Hover(std::nullopt);
    if (pointed) pointed(std::nullopt);
}

void MapView::keyPressEvent(QKeyEvent* event) {
    const double across = std::round(view_.Width() * shareOfArrow),
                 up = std::round(view_.Height() * shareOfArrow);
    switch (event->key()) {
        case Qt::Key_Left:
            return SetView(view_.Panned(across, 0));
        case Qt::Key_Right:
            return SetView(view_.Panned(-across, 0));
        case Qt::Key_Up:
            return SetView(view_.Panned(0, up));
        case Qt::Key_Down:
            return SetView(view_.Panned(0, -up));
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return ZoomBy(zoomStep);
        case Qt::Key_Minus:
            return ZoomBy(1 / zoomStep);
        case Qt::Key_Escape:
            drag_ = Drag::None;
            takesRectangle_ = false;
            UseCursor();
            return Select(std::nullopt);
        case Qt::Key_Space:
            spaceIsDown_ = true;
            return UseCursor();
        default:
            QWidget::keyPressEvent(event);
    }
}

void MapView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) return QWidget::keyReleaseEvent(event);
    spaceIsDown_ = false;
    UseCursor();
}

void MapView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) update();
    QWidget::changeEvent(event);
}

void MapView::UseCursor() {
    if (drag_ == Drag::Pan)
        setCursor(Qt::ClosedHandCursor);
    else if (spaceIsDown_)
        setCursor(Qt::OpenHandCursor);
    else
        setCursor(takesRectangle_ || drag_ == Drag::Rectangle ? Qt::CrossCursor : Qt::ArrowCursor);
}

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/ImageView.h"

#include "desktop/application/Texts.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

namespace vexlator::desktop {

namespace {

constexpr double reach = 9;                               ///< of the pointer, in pixels of the desktop
constexpr double largestScale = 64, smallestShare = 0.5;  ///< of the scale that shows all
constexpr double lensRadius = 84, lensOff = 30;
constexpr double leastLensScale = 8;  ///< pixels of the screen to one of the image
constexpr double farStep = 10;        ///< of arrow keys with Shift

const QColor pointColour(0, 120, 215), worstColour(214, 40, 40), leftOutColour(120, 120, 120),
    selectionColour(255, 140, 0), halo(255, 255, 255, 210);

/// Hundredths of a pixel are more than a hand can tell.
QPointF Rounded(QPointF pixel) {
    return {std::round(pixel.x() * 100) / 100, std::round(pixel.y() * 100) / 100};
}

/// What part of a length is seen where it does not fill the view: it lies in the middle.
double Bounded(double from, double seen, double whole) {
    return whole <= seen ? (whole - seen) / 2 : std::clamp(from, 0.0, whole - seen);
}

void StrokeWithHalo(QPainter& painter, const QPainterPath& path, const QColor& colour, double width) {
    painter.strokePath(path, QPen(halo, width + 2.5, Qt::SolidLine, Qt::RoundCap));
    painter.strokePath(path, QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
}

}  // namespace

ImageView::ImageView(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("pic"));
    setAccessibleName(Texts::tr("Image"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMinimumSize(240, 180);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void ImageView::SetImage(std::shared_ptr<const ImagePyramid> image) {
    image_ = std::move(image);
    marks_.clear();
    cross_.reset();
    selected_ = 0;
    isPainted_ = false;
    SetView({}, 1);
    update();
    UseCursor();
}

void ImageView::SetMarks(std::vector<PointMark> marks) {
    marks_ = std::move(marks);
    if (!MarkOf(selected_)) selected_ = 0;
    update();
}

void ImageView::Select(int number) {
    if (number != selected_) ++gesture_;
    selected_ = number;
    update();
}

void ImageView::SelectAndTell(int number) {
    Select(number);
    if (selected) selected(number);
}

void ImageView::SetNotice(const QString& text) {
    notice_ = text;
    update();
}

void ImageView::SetMagnified(bool isOn) {
    isMagnified_ = isOn;
    update();
}

// --- What is seen

QSizeF ImageView::ScreenSize() const {
    return QSizeF(size()) * devicePixelRatioF();
}

QSizeF ImageView::WholeSize() const {
    return image_ ? QSizeF(image_->Size()) * scale_ : QSizeF(0, 0);
}

QPointF ImageView::PlaceOf(QPointF pixel) const {
    return (pixel - origin_) * scale_ / devicePixelRatioF();
}

QPointF ImageView::PixelAt(QPointF place) const {
    return origin_ + place * devicePixelRatioF() / scale_;
}

/// The scale that shows all of it.
double ImageView::WholeScale() const {
    QSizeF screen = ScreenSize(), whole = image_->Size();
    return std::min(screen.width() / whole.width(), screen.height() / whole.height());
}

void ImageView::SetView(QPointF origin, double scale) {
    if (!image_) return;
    QSizeF screen = ScreenSize(), whole = image_->Size();
    scale_ = scale;
    // Whole pixels of the screen, so that an image at full size is copied as it is.
    auto bounded = [&](double from, double seen, double length) {
        return std::round(Bounded(from * scale_, seen, length * scale_)) / scale_;
    };
    origin_ = {bounded(origin.x(), screen.width(), whole.width()),
               bounded(origin.y(), screen.height(), whole.height())};
    isFitted_ = false;
    isPainted_ = false;
    update();
    if (viewChanged) viewChanged();
}

/// What lies at a place of the widget stays there.
void ImageView::ZoomTo(double scale, QPointF place) {
    if (!image_) return;
    scale = std::clamp(scale, std::min(1.0, WholeScale()) * smallestShare, largestScale);
    SetView(PixelAt(place) - place * devicePixelRatioF() / scale, scale);
}

void ImageView::Fit() {
    if (image_) SetView({}, std::min(WholeScale(), largestScale));
    isFitted_ = true;
}

void ImageView::ShowFullSize() {
    ZoomTo(1, QRectF(rect()).center());
}

void ImageView::ZoomBy(double factor) {
    bool isSeen = cross_ && rect().contains(PlaceOf(*cross_).toPoint());
    ZoomTo(scale_ * factor, isSeen ? PlaceOf(*cross_) : QRectF(rect()).center());
}

void ImageView::ShowPlace(QPointF pixel) {
    if (rect().adjusted(20, 20, -20, -20).contains(PlaceOf(pixel).toPoint())) return;
    SetView(origin_ + pixel - PixelAt(QRectF(rect()).center()), scale_);
}

void ImageView::ScrollTo(QPointF offset) {
    if (offset != Offset()) SetView(offset / scale_, scale_);
}

void ImageView::resizeEvent(QResizeEvent*) {
    isFitted_ ? Fit() : SetView(origin_, scale_);
}

// --- Painting

void ImageView::PaintImage() {
    // New memory costs more than all of the painting.
    if (painted_.size() != ScreenSize().toSize())
        painted_ = QImage(ScreenSize().toSize(), QImage::Format_RGB32);
    painted_.setDevicePixelRatio(1);
    QRectF seen(origin_, ScreenSize() / scale_);
    QRectF part = seen.intersected(QRectF(QPointF(), QSizeF(image_->Size())));
    QRectF target((part.topLeft() - origin_) * scale_, part.size() * scale_);
    QPainter painter(&painted_);
    if (!target.contains(painted_.rect())) painter.fillRect(painted_.rect(), palette().color(QPalette::Mid));
    if (image_->IsTransparent()) painter.fillRect(target, Qt::white);
    image_->Paint(painter, target, part);
    isPainted_ = true;
}

void ImageView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (!image_) {
        painter.fillRect(rect(), palette().color(QPalette::Base));
        painter.setPen(palette().color(QPalette::PlaceholderText));
        painter.drawText(rect().adjusted(24, 24, -24, -24), Qt::AlignCenter | Qt::TextWordWrap, notice_);
        return;
    }
    if (!isPainted_) PaintImage();
    painted_.setDevicePixelRatio(devicePixelRatioF());
    painter.drawImage(QPointF(0, 0), painted_);
    if (cross_) DrawCrosshair(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const PointMark& mark : marks_)
        if (mark.number != selected_) DrawMark(painter, mark);
    if (const PointMark* mark = MarkOf(selected_)) DrawMark(painter, *mark);
    if (cross_ && isMagnified_ && drag_ != Drag::Pan) DrawMagnifier(painter);
}

void ImageView::DrawMark(QPainter& painter, const PointMark& mark) const {
    constexpr double radius = 8, arm = 12;
    QPointF place = PlaceOf(mark.pixel);
    if (!rect().adjusted(-60, -60, 60, 60).contains(place.toPoint())) return;
    bool isSelected = mark.number == selected_;
    QColor colour = isSelected       ? selectionColour
                    : mark.isLeftOut ? leftOutColour
                    : mark.isWorst   ? worstColour
                                     : pointColour;
    QPainterPath path;
    path.addEllipse(place, radius, radius);
    for (QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
        path.moveTo(place + way * 3);
        path.lineTo(place + way * arm);
    }
    if (mark.fitted) {
        path.moveTo(place);
        path.lineTo(PlaceOf(*mark.fitted));
    }
    StrokeWithHalo(painter, path, colour, isSelected ? 2.5 : 1.8);
    DrawNumber(painter, mark.number, place, colour);
}

/// Beside the mark, on the side that is seen.
void ImageView::DrawNumber(QPainter& painter, int number, QPointF place, const QColor& colour) const {
    constexpr double off = 11, up = 7;
    QFont bold = font();
    bold.setBold(true);
    QFontMetricsF metrics(bold);
    QString text = QString::number(number);
    double wide = metrics.horizontalAdvance(text);
    bool fitsRight = place.x() + off + wide<width(), fitsAbove = place.y() - up> metrics.ascent();
    QPainterPath path;
    path.addText(place + QPointF(fitsRight ? off : -off - wide, fitsAbove ? -up : up + metrics.ascent()),
                 bold, text);
    painter.strokePath(path, QPen(halo, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, colour);
}

void ImageView::DrawCrosshair(QPainter& painter) const {
    constexpr double gap = 5;
    QPointF at = PlaceOf(*cross_);
    const QLineF lines[] = {{0, at.y(), at.x() - gap, at.y()},
                            {at.x() + gap, at.y(), double(width()), at.y()},
                            {at.x(), 0, at.x(), at.y() - gap},
                            {at.x(), at.y() + gap, at.x(), double(height())}};
    for (const QPen& pen : {QPen(QColor(255, 255, 255, 150), 3), QPen(QColor(20, 20, 20, 220), 1)}) {
        painter.setPen(pen);
        painter.drawLines(lines, 4);
    }
}

void ImageView::DrawMagnifier(QPainter& painter) const {
    const double ratio = devicePixelRatioF(), lens = std::max(leastLensScale * ratio, scale_ * 2);
    if (scale_ >= leastLensScale * ratio) return;
    double half = lensRadius * ratio / lens;
    QRectF part = QRectF(cross_->x() - half, cross_->y() - half, 2 * half, 2 * half)
                      .intersected(QRectF(QPointF(), QSizeF(image_->Size())));
    if (part.isEmpty()) return;
    QPointF at = PlaceOf(*cross_), off(lensOff + lensRadius, lensOff + lensRadius);
    if (at.x() + off.x() + lensRadius > width()) off.rx() *= -1;
    if (at.y() + off.y() + lensRadius > height()) off.ry() *= -1;
    QPointF centre = at + off;
    centre.setX(std::clamp(centre.x(), lensRadius, std::max(lensRadius, width() - lensRadius)));
    QPainterPath circle;
    circle.addEllipse(centre, lensRadius, lensRadius);
    painter.fillPath(circle, palette().color(QPalette::Mid));
    painter.save();
    painter.setClipPath(circle);
    QRectF target(centre + (part.topLeft() - *cross_) * lens / ratio, part.size() * lens / ratio);
    image_->Paint(painter, target, part);
    QPainterPath cross;
    for (QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
        cross.moveTo(centre + way * 4);
        cross.lineTo(centre + way * lensRadius);
    }
    StrokeWithHalo(painter, cross, QColor(20, 20, 20), 1);
    painter.restore();
    StrokeWithHalo(painter, circle, QColor(60, 60, 60), 1.5);
}

// --- Mouse

const PointMark* ImageView::MarkOf(int number) const {
    auto found = std::find_if(marks_.begin(), marks_.end(),
                              [number](const PointMark& mark) { return mark.number == number; });
    return found == marks_.end() ? nullptr : &*found;
}

/// The nearest within reach; 0: none.
int ImageView::MarkAt(QPointF place) const {
    int nearest = 0;
    double best = reach;
    for (const PointMark& mark : marks_) {
        QPointF off = PlaceOf(mark.pixel) - place;
        double distance = std::hypot(off.x(), off.y());
        if (distance > best) continue;
        best = distance;
        nearest = mark.number;
    }
    return nearest;
}

/// The nearest place on the image.
QPointF ImageView::Inside(QPointF pixel) const {
    return {std::clamp(pixel.x(), 0.0, double(image_->Size().width())),
            std::clamp(pixel.y(), 0.0, double(image_->Size().height()))};
}

void ImageView::Point(std::optional<QPointF> pixel) {
    cross_ = pixel;
    update();
    if (pointed) pointed(pixel);
}

/// Takes hold of a point, or makes one.
void ImageView::Press(QPointF place) {
    ++gesture_;
    QPointF pixel = Rounded(PixelAt(place));
    grip_ = {};
    if (int number = MarkAt(place)) {
        SelectAndTell(number);
        grip_ = MarkOf(number)->pixel - pixel;
    } else if (QRectF(QPointF(), QSizeF(image_->Size())).contains(pixel) && clicked) {
        clicked(pixel);
    } else {
        return SelectAndTell(0);
    }
    if (MarkOf(selected_)) drag_ = Drag::Point;
}

void ImageView::mousePressEvent(QMouseEvent* event) {
    if (!image_ || drag_ != Drag::None) return;
    last_ = event->position();
    if (event->button() != Qt::LeftButton || spaceIsDown_)
        drag_ = Drag::Pan;
    else
        Press(last_);
    UseCursor();
}

void ImageView::mouseMoveEvent(QMouseEvent* event) {
    if (!image_) return;
    QPointF place = event->position();
    if (drag_ == Drag::Pan) SetView(origin_ + PixelAt(last_) - PixelAt(place), scale_);
    last_ = place;
    QPointF pixel = Rounded(PixelAt(place) + (drag_ == Drag::Point ? grip_ : QPointF()));
    if (drag_ == Drag::Point) pixel = Inside(pixel);
    if (drag_ == Drag::Point && moved) moved(selected_, pixel, gesture_);
    Point(pixel);
}

void ImageView::mouseReleaseEvent(QMouseEvent*) {
    drag_ = Drag::None;
    UseCursor();
    update();
}

void ImageView::wheelEvent(QWheelEvent* event) {
    constexpr double notch = 240;  // eighths of a degree that double the scale
    event->accept();
    if (!image_) return;
    QPointF turned = event->angleDelta();
    if (event->modifiers().testFlag(Qt::ShiftModifier)) {
        if (turned.x() == 0) turned = turned.transposed();
        return SetView(origin_ - turned / scale_, scale_);
    }
    ZoomTo(scale_ * std::exp2(turned.y() / notch), event->position());
}

void ImageView::leaveEvent(QEvent*) {
    if (!hasFocus()) Point(std::nullopt);
}

// --- Keys

/// Moves the point that is selected, else the crosshair.
bool ImageView::MoveByKey(int key, double step) {
    QPointF by = key == Qt::Key_Left    ? QPointF(-step, 0)
                 : key == Qt::Key_Right ? QPointF(step, 0)
                 : key == Qt::Key_Up    ? QPointF(0, -step)
                 : key == Qt::Key_Down  ? QPointF(0, step)
                                        : QPointF();
    if (by.isNull() || !image_) return false;
    const PointMark* mark = MarkOf(selected_);
    QPointF from = mark ? mark->pixel : cross_.value_or(Rounded(PixelAt(QRectF(rect()).center())));
    QPointF to = Inside(from + by);
    if (mark && moved) moved(selected_, to, gesture_);
    ShowPlace(to);
    Point(to);
    return true;
}

void ImageView::keyPressEvent(QKeyEvent* event) {
    bool isPlain = !(event->modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
    if (isPlain && MoveByKey(event->key(), event->modifiers() & Qt::ShiftModifier ? farStep : 1)) return;
    bool isText = isPlain && !event->text().isEmpty() && event->text()[0].isPrint();
    switch (event->key()) {
        case Qt::Key_Space:
            spaceIsDown_ = true;
            return UseCursor();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (selected_ == 0 && cross_ && clicked) return clicked(*cross_);
            if (selected_ != 0 && typed) typed({});
            return;
        case Qt::Key_Delete:
        case Qt::Key_Backspace:
            if (selected_ != 0 && removed) removed(selected_);
            return;
        case Qt::Key_Escape:
            return SelectAndTell(0);
        default:
            if (isText && selected_ != 0 && typed) return typed(event->text());
            QWidget::keyPressEvent(event);
    }
}

void ImageView::keyReleaseEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Space || event->isAutoRepeat()) return QWidget::keyReleaseEvent(event);
    spaceIsDown_ = false;
    UseCursor();
}

void ImageView::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) isPainted_ = false;
    QWidget::changeEvent(event);
}

void ImageView::UseCursor() {
    if (!image_) return unsetCursor();
    setCursor(drag_ == Drag::Pan ? Qt::ClosedHandCursor
              : spaceIsDown_     ? Qt::OpenHandCursor
                                 : Qt::BlankCursor);
}

}  // namespace vexlator::desktop

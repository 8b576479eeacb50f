// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/georef/ImagePyramid.h"

#include <QPointF>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace vexlator::desktop {

/// A control point on the image.
struct PointMark {
    int number = 0;
    QPointF pixel;
    std::optional<QPointF> fitted;  ///< where the fit puts its ground position
    bool isLeftOut = false, isWorst = false;
};

/// `pic`: the image, its control points, a crosshair and a magnifier. It changes nothing itself: what people
/// want is told by the functions below, which may be empty. Positions are in pixels of the image.
class ImageView : public QWidget {
public:
    explicit ImageView(QWidget* parent = nullptr);

    /// At full size, from its top left corner; null: nothing.
    void SetImage(std::shared_ptr<const ImagePyramid> image);
    void SetMarks(std::vector<PointMark> marks);
    /// 0: none.
    void Select(int number);
    int Selected() const { return selected_; }
    /// Stands in the middle while there is no image.
    void SetNotice(const QString& text);
    void SetMagnified(bool isOn);

    void Fit();
    void ShowFullSize();
    void ZoomBy(double factor);
    void ShowPlace(QPointF pixel);
    /// Pixels of the screen to a pixel of the image.
    double Scale() const { return scale_; }
    /// What scroll bars need, in pixels of the screen: the image's size, and the place of its part that is
    /// seen.
    QSizeF WholeSize() const;
    QPointF Offset() const { return {origin_.x() * scale_, origin_.y() * scale_}; }
    void ScrollTo(QPointF offset);
    /// A place in the widget.
    QPointF PlaceOf(QPointF pixel) const;
    QPointF PixelAt(QPointF place) const;
    std::optional<QPointF> Crosshair() const { return cross_; }

    std::function<void(QPointF)> clicked;  ///< where no point is
    std::function<void(int)> selected;
    /// Moves of one drag, or of arrow keys in a row, have the same gesture.
    std::function<void(int number, QPointF pixel, int gesture)> moved;
    std::function<void(int)> removed;
    std::function<void(std::optional<QPointF>)> pointed;
    std::function<void(const QString&)> typed;  ///< while a point is selected
    std::function<void()> viewChanged;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum class Drag { None, Point, Pan };

    void SetView(QPointF origin, double scale);
    void ZoomTo(double scale, QPointF place);
    double WholeScale() const;
    QSizeF ScreenSize() const;
    int MarkAt(QPointF place) const;
    const PointMark* MarkOf(int number) const;
    QPointF Inside(QPointF pixel) const;
    void Point(std::optional<QPointF> pixel);
    bool MoveByKey(int key, double step);
    void SelectAndTell(int number);
    void Press(QPointF place);
    void UseCursor();

    void PaintImage();
    void DrawMark(QPainter& painter, const PointMark& mark) const;
    void DrawNumber(QPainter& painter, int number, QPointF place, const QColor& colour) const;
    void DrawCrosshair(QPainter& painter) const;
    void DrawMagnifier(QPainter& painter) const;

    std::shared_ptr<const ImagePyramid> image_;
    std::vector<PointMark> marks_;
    QImage painted_;  ///< the image as it is seen
    bool isPainted_ = false;
    QPointF origin_;  ///< what lies at the widget's top left corner
    double scale_ = 1;
    std::optional<QPointF> cross_;
    int selected_ = 0, gesture_ = 0;
    Drag drag_ = Drag::None;
    QPointF last_, grip_;  ///< from the pointer to the point that is dragged
    bool spaceIsDown_ = false, isMagnified_ = true, isFitted_ = false;
    QString notice_;
};

}  // namespace vexlator::desktop

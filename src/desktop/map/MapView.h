// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/map/PaintWorker.h"

#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QPainterPath;

namespace vexlator::desktop {

/// A scene to look at: panned, zoomed, pointed at. Painting goes on in a worker; until its picture is there,
/// the last one is shown where it belongs. What happens is told by the functions below, which may be empty.
class MapView : public QWidget {
public:
    explicit MapView(QWidget* parent = nullptr);
    ~MapView() override;

    /// Shows it from the start; null: nothing.
    void SetScene(std::shared_ptr<const render::Scene> scene);
    /// By their place in the scene's list.
    void SetHiddenLayers(std::vector<bool> hidden);
    /// Stands in the middle while there is no scene.
    void SetNotice(const QString& text);

    static constexpr double zoomStep = 1.5;  ///< of + and -
    void Fit();
    void ZoomBy(double factor);
    /// The next drag draws the rectangle to be shown.
    void ZoomToRectangle();
    void ShowGround(const render::Box& ground);
    void Select(std::optional<std::size_t> item);

    const render::View& Shown() const { return view_; }
    /// What the item under a place in the widget is.
    std::optional<std::size_t> ItemUnder(QPointF place) const;
    /// Ground to paper, as in 1 : 2500.
    double ScaleNumber() const;

    std::function<void(std::optional<render::PlanePoint>)> pointed;  ///< ground under the pointer
    std::function<void()> viewChanged;
    std::function<void(std::optional<std::size_t>)> hovered, selected;  ///< item
    std::function<void()> painted;                                      ///< a whole picture has come

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    enum class Drag { None, Maybe, Pan, Rectangle };

    void SetView(const render::View& view);
    void Order();
    void Take(Picture picture);
    /// The picture on the screen shows all of the view, at its scale.
    bool IsPainted() const;
    bool IsNearItsEdge() const;
    void Hover(std::optional<std::size_t> item);
    void EndDrag(QPointF place);
    void UseCursor();

    void DrawPicture(QPainter& painter, const Picture& picture) const;
    void DrawItem(QPainter& painter, std::size_t item, const QColor& colour, double width) const;
    void DrawScaleBar(QPainter& painter) const;
    void DrawNotice(QPainter& painter) const;
    double PixelsPerMillimetre() const;
    render::PlanePoint PixelAt(QPointF place) const;

    std::shared_ptr<const render::Scene> scene_;
    std::vector<bool> hiddenLayers_;
    render::View view_;
    bool isFitted_ = true;  ///< shows all, and goes on to when the window changes
    std::optional<Picture> whole_, coarse_;
    std::uint64_t number_ = 0;       ///< of the newest order
    std::uint64_t leastNumber_ = 0;  ///< orders before show other layers or another scene
    std::optional<std::size_t> hovered_, selected_;
    Drag drag_ = Drag::None;
    bool spaceIsDown_ = false, takesRectangle_ = false;
    QPointF pressed_, last_;
    QString notice_;
    std::unique_ptr<PaintWorker> worker_;
};

}  // namespace vexlator::desktop

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

/// A scene on the screen that can be panned, zoomed and pointed at. A worker paints. Until its picture
/// arrives, the last one is shown in its place. The functions below report events and may be empty.
class MapView : public QWidget {
public:
    explicit MapView(QWidget* parent = nullptr);
    ~MapView() override;

    /// Shows a scene from the start; null: nothing.
    void SetScene(std::shared_ptr<const render::Scene> scene);
    /// By index in the scene's list.
    void SetHiddenLayers(std::vector<bool> hidden);
    /// Pens that count instead of the scene's own, and hidden layers; both by places in the scene's list.
    void SetStyle(render::LayerPens pens, std::vector<bool> hidden);
    /// Stands in the middle while there is no scene.
    void SetNotice(const QString& text);

    static constexpr double zoomStep = 1.5;  ///< step of + and -
    void Fit();
    void ZoomBy(double factor);
    /// The next drag selects the rectangle to show.
    void ZoomToRectangle();
    void ShowGround(const render::Box& ground);
    void Select(std::optional<std::size_t> item);

    const render::View& Shown() const { return view_; }
    /// The item at a position in the widget.
    std::optional<std::size_t> ItemUnder(QPointF place) const;
    /// Ratio of ground to paper, as in 1 : 2500.
    double ScaleNumber() const;

    std::function<void(std::optional<render::PlanePoint>)> pointed;  ///< ground under the pointer
    std::function<void(render::PlanePoint)> clicked;  ///< ground; before the item there is selected
    std::function<void()> viewChanged;
    std::function<void(std::optional<std::size_t>)> hovered, selected;  ///< item
    std::function<void()> painted;                                      ///< a complete picture has arrived

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
    /// The picture on the screen shows the whole view at its scale.
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
    std::shared_ptr<const render::LayerPens> pens_;
    render::View view_;
    bool isFitted_ = true;  ///< shows everything, also after the window changes its size
    std::optional<Picture> whole_, coarse_;
    std::uint64_t number_ = 0;       ///< number of the newest order
    std::uint64_t leastNumber_ = 0;  ///< earlier orders show other layers or another scene
    std::optional<std::size_t> hovered_, selected_;
    Drag drag_ = Drag::None;
    bool spaceIsDown_ = false, takesRectangle_ = false;
    QPointF pressed_, last_;
    QString notice_;
    std::unique_ptr<PaintWorker> worker_;
};

}  // namespace vexlator::desktop

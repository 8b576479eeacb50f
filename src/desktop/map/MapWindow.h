// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"
#include "desktop/map/MapFile.h"

#include <QCoreApplication>
#include <QMainWindow>
#include <QThreadPool>
#include <optional>
#include <vector>

class QAction;
class QToolButton;
class QTreeWidget;
class QLabel;

namespace vexlator::desktop {

class LayerPanel;
class MapView;
enum class Drawn;

/// A drawing or a package on a map, with its layers and the selection.
class MapWindow : public QMainWindow {
    Q_DECLARE_TR_FUNCTIONS(MapWindow)
public:
    /// The installation must outlive the window.
    explicit MapWindow(config::Installation& installation, QWidget* parent = nullptr);
    ~MapWindow() override;

    /// Reads and shows a file, in the background. An error appears on the map.
    void Open(const std::string& path);
    MapView& Map() { return *map_; }
    const std::optional<MapFile>& File() const { return file_; }

protected:
    void changeEvent(QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void MakeActions();
    void MakePanels();
    void MakeStatusLine();
    QAction* AddAction(const QString& text, Drawn icon, const QKeySequence& keys, void (MapWindow::*act)());
    void UseIcons();
    void ChooseFile();
    void ZoomIn();
    void ZoomOut();
    void Fit();
    void ZoomToRectangle();
    void Show(MapFile file);
    void ShowPlace(std::optional<render::PlanePoint> ground);
    void ShowScale();
    void ShowHovered(std::optional<std::size_t> item);
    void ShowSelected(std::optional<std::size_t> item);
    void ShowDetails(const render::EntityDetails& details);
    void AddDetail(const QString& name, const QString& value, bool isHead = false);

    config::Installation& installation_;
    std::optional<MapFile> file_;
    MapView* map_;
    LayerPanel* layers_;
    QTreeWidget* details_;
    QLabel* hovered_;
    QToolButton *place_, *scale_;
    std::vector<std::pair<QAction*, Drawn>> drawn_;
    std::uint64_t opened_ = 0,
                  asked_ = 0;  ///< numbers of the newest file and selection: late results are ignored
    QThreadPool readers_;      ///< the window waits for it when it closes
};

/// A map window with a file, or without one for "".
QWidget* MakeMapWindow(config::Installation& installation, const std::string& path);

}  // namespace vexlator::desktop

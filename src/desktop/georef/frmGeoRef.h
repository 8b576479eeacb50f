// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Installation.h"
#include "config/Run.h"
#include "coords/frmLatLng.h"
#include "desktop/application/Conversation.h"
#include "desktop/application/Worker.h"
#include "desktop/georef/PointsModel.h"
#include "formats/worldfile/WorldFile.h"
#include "georef/Georeferencing.h"

#include <QMainWindow>
#include <QTimer>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

class QDockWidget;
class QLabel;

namespace vexlator::desktop {

class GroundMap;
class ImageFrame;
class ImagePyramid;
class ImageView;
class PointsPanel;

/// The georeferencing window: control points on an image, their places on the ground, and how well they fit.
/// What is done with them is georef/Georeferencing.
class frmGeoRef : public QMainWindow {
public:
    /// The installation outlives the window.
    explicit frmGeoRef(config::Installation& installation, QWidget* parent = nullptr);
    ~frmGeoRef() override;

    /// Shows an image and the points of its georeference file; goes on in the background.
    void LoadJPG(const std::string& imagePath);

    /// The first tile of an image that was cut.
    std::function<void(const QString& tile)> carved;

    bool IsBusy() const { return isReading_ || isRunning_; }
    PointsModel& Points() { return points_; }
    ImageView& Picture();
    GroundMap& Map() { return *map_; }
    void ShowMap();

protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeMenus();
    void MakeViewMenu();
    void MakeStatusLine();
    void Connect();
    void ConnectPicture();
    void UseIcons();

    void ChooseImage();
    void Show(std::shared_ptr<const ImagePyramid> image);
    void ReadPoints();
    void ReadWorldFile();
    void ImportPoints();
    void ExportPoints();
    void Changed();
    void ShowMarks();
    void ShowError();
    void ShowPlace(std::optional<QPointF> pixel);
    void Select(int number);
    void TakeGround(util::PlanePoint ground);
    void GroundFromWorldFile();
    void RemoveSelected();

    std::string ReadGround(const std::string& typed);
    coords::frmLatLng& Grid();
    georef::GeorefFile File() const;
    void Save();

    void btnGeoRef_Click();
    void btnCarve_Click();
    void ProjectDegrees();
    void Start(std::function<void(config::Run&)> work, std::function<void()> ended);
    void SetRunning(bool isRunning);
    void Say(const QString& line);

    config::Installation& installation_;
    Conversation talk_;  ///< of the window itself
    Conversation work_;  ///< of what goes on in the worker
    config::Run run_;
    std::unique_ptr<coords::frmLatLng> grid_;
    PointsModel points_;
    georef::ImageOnDisk image_;  ///< path "": none
    std::optional<formats::WorldFile> world_;
    ImageFrame* frame_;
    PointsPanel* panel_;
    GroundMap* map_;
    QDockWidget* mapDock_;
    QLabel *place_, *error_, *scale_;
    QTimer saving_;
    bool isReading_ = false, isRunning_ = false, isSaved_ = true, maySave_ = false;
    std::unique_ptr<Worker> worker_;
    std::jthread reader_;  ///< goes first
};

}  // namespace vexlator::desktop

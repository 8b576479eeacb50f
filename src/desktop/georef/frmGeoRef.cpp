// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/georef/frmGeoRef.h"

#include "desktop/application/Application.h"
#include "desktop/application/Texts.h"
#include "desktop/georef/GroundMap.h"
#include "desktop/georef/ImageFrame.h"
#include "desktop/georef/ImagePyramid.h"
#include "desktop/georef/ImageView.h"
#include "desktop/georef/PointsPanel.h"
#include "desktop/georef/Said.h"
#include "desktop/map/MapView.h"
#include "georef/Ground.h"
#include "georef/GroundConversion.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <QCheckBox>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QStatusBar>
#include <algorithm>

namespace vexlator::desktop {

namespace {

constexpr int savingDelay = 150;  // ms: a point that is dragged is not written at every move

std::optional<util::PlanePoint> NumbersOf(const std::string& text) {
    return georef::ReadNumberPair(text);
}

QString Fixed(double value, int decimals) {
    return Text(util::FormatFixed(value, decimals));
}

}  // namespace

frmGeoRef::frmGeoRef(config::Installation& installation, QWidget* parent)
    : QMainWindow(parent),
      installation_(installation),
      talk_(BoxesOver([this] { return this; }, [this](const QString& line) { Say(line); })),
      work_(BoxesOver([this] { return this; }, [this](const QString& line) { Say(line); })),
      run_(installation, talk_),
      points_([this](const std::string& typed) { return ReadGround(typed); }),
      frame_(new ImageFrame),
      panel_(new PointsPanel(points_)),
      map_(new GroundMap(installation)),
      place_(new QLabel),
      error_(new QLabel),
      scale_(new QLabel) {
    setObjectName(QStringLiteral("frmGeoRef"));
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptDrops(true);
    setWindowTitle(Texts::tr("Georeferencing"));
    setCentralWidget(frame_);
    Picture().SetNotice(Texts::tr("Open a scanned plan or a photograph, or drop one here."));
    MakeMenus();
    MakeStatusLine();
    Connect();
    SetRunning(false);
    Changed();
    resize(1360, 820);
}

frmGeoRef::~frmGeoRef() {
    Save();
    points_.changed = nullptr;
    // They go before what they show.
    delete panel_;
    delete map_;
    delete frame_;
}

ImageView& frmGeoRef::Picture() {
    return frame_->Picture();
}

void frmGeoRef::MakeStatusLine() {
    error_->setObjectName(QStringLiteral("lblError"));
    statusBar()->addPermanentWidget(place_);
    statusBar()->addPermanentWidget(error_);
    statusBar()->addPermanentWidget(scale_);
}

void frmGeoRef::Connect() {
    ConnectPicture();
    points_.changed = [this] { Changed(); };
    panel_->selected = [this](int number) { Select(number); };
    panel_->entered = [this] { Picture().setFocus(); };
    map_->clicked = [this](util::PlanePoint ground) { TakeGround(ground); };
    connect(panel_->btnGeoRef, &QPushButton::clicked, this, [this] { btnGeoRef_Click(); });
    connect(panel_->btnCarve, &QPushButton::clicked, this, [this] { btnCarve_Click(); });
    connect(panel_->btnCancel, &QPushButton::clicked, this, [this] { work_.Cancel(); });
    connect(panel_->chkRotate, &QCheckBox::clicked, this, [this] { Changed(); });
    saving_.setSingleShot(true);
    saving_.setInterval(savingDelay);
    connect(&saving_, &QTimer::timeout, this, [this] { Save(); });
}

void frmGeoRef::ConnectPicture() {
    ImageView& picture = Picture();
    picture.clicked = [this](QPointF pixel) { Select(points_.Add({pixel.x(), pixel.y()})); };
    picture.selected = [this](int number) { Select(number); };
    picture.moved = [this](int number, QPointF pixel, int gesture) {
        points_.Move(number, {pixel.x(), pixel.y()}, gesture);
    };
    picture.removed = [this](int number) { points_.Remove(number); };
    picture.pointed = [this](auto pixel) { ShowPlace(pixel); };
    picture.typed = [this](const QString& text) { panel_->TypeGround(text); };
    picture.viewChanged = [this] {
        frame_->Follow();
        double percent = 100 * Picture().Scale();
        scale_->setText(QLocale().toString(percent, 'f', percent < 10 ? 1 : 0) + " %");
    };
}

// --- Images

void frmGeoRef::LoadJPG(const std::string& imagePath) {
    std::string path = platform::AbsolutePath(imagePath);
    if (!platform::FileExists(path)) return talk_.ShowMessage("JPG not Found:" + platform::NativePath(path));
    Save();
    maySave_ = false;
    image_ = {};
    world_.reset();
    points_.Load({}, georef::Fit::Order::First);
    QString name = Text(util::FileNameOf(path));
    Picture().SetImage(nullptr);
    Picture().SetNotice(Texts::tr("Reading %1…").arg(name));
    setWindowTitle(Texts::tr("%1 – Georeferencing").arg(name));
    isReading_ = true;
    SetRunning(isRunning_);
    // The thread that still reads another image ends, and what it has sent comes before this.
    reader_ = std::jthread([this, path](const std::stop_token& stop) {
        auto post = [this, stop](std::function<void()> act) {
            QMetaObject::invokeMethod(
                this,
                [stop, act = std::move(act)] {
                    if (!stop.stop_requested()) act();
                },
                Qt::QueuedConnection);
        };
        try {
            auto image = ReadImage(path, stop);
            post([this, path, image] {
                image_ = {path, image->Size().width(), image->Size().height()};
                Show(image);
            });
        } catch (const platform::Stopped&) {
        } catch (const std::exception& error) {
            post([this, text = Text(error.what())] {
                isReading_ = false;
                Picture().SetNotice(text);
            });
        }
    });
}

void frmGeoRef::Show(std::shared_ptr<const ImagePyramid> image) {
    isReading_ = false;
    Picture().SetImage(std::move(image));
    ReadPoints();
    ReadWorldFile();
    SetRunning(isRunning_);
    Picture().setFocus();
    ProjectDegrees();
}

/// Those that were saved when the image was last open.
void frmGeoRef::ReadPoints() {
    georef::GeorefFile file;
    try {
        file = georef::ReadGeorefFile(georef::GeorefFilePath(image_.path));
        maySave_ = true;
    } catch (const std::exception& error) {
        Say(Texts::tr("The points of this image are not saved: %1").arg(Text(error.what())));
    }
    panel_->chkRotate->setChecked(file.rotate);
    points_.Load(file.points, file.order);
    isSaved_ = true;
    saving_.stop();
    bool isOther = file.width > 0 && (file.width != image_.width || file.height != image_.height);
    if (isOther && !file.points.empty())
        Say(Texts::tr("The points were taken on an image of %1 x %2 pixels")
                .arg(file.width)
                .arg(file.height));
}

void frmGeoRef::ReadWorldFile() {
    world_.reset();
    for (const std::string& name : formats::WorldFileNames(image_.path)) {
        if (!platform::FileExists(name)) continue;
        try {
            world_ = formats::ReadWorldFile(name);
        } catch (const platform::ReadError& error) {
            Say(Text(error.what()));
        }
        return;
    }
}

// --- Points

void frmGeoRef::Changed() {
    isSaved_ = false;
    saving_.start();
    panel_->Follow();
    ShowMarks();
    ShowError();
}

void frmGeoRef::ShowMarks() {
    const georef::Assessment& standing = points_.Standing();
    std::vector<PointMark> marks;
    std::vector<std::pair<int, util::PlanePoint>> places;
    int number = 0;
    for (const georef::PointEntry& point : points_.Points()) {
        ++number;
        auto pixel = NumbersOf(point.pixel), ground = NumbersOf(point.ground);
        if (ground) places.emplace_back(number, *ground);
        if (!pixel) continue;
        PointMark mark{number, QPointF(pixel->x, pixel->y), {}, point.isLeftOut, number == standing.worst};
        if (ground && standing.fit)
            if (auto fitted = standing.fit->Pixel(*ground, *pixel))
                mark.fitted = QPointF(fitted->x, fitted->y);
        marks.push_back(mark);
    }
    Picture().SetMarks(std::move(marks));
    map_->SetMarks(std::move(places), panel_->Selected());
}

void frmGeoRef::ShowError() {
    const auto& fit = points_.Standing().fit;
    if (!fit) return error_->clear();
    georef::MeanError mean = fit->Error();
    error_->setText(
        Texts::tr("mean error %1 pixels, %2 m").arg(Fixed(mean.pixels, 2), Fixed(mean.metres, 3)));
}

void frmGeoRef::ShowPlace(std::optional<QPointF> pixel) {
    if (!pixel) return place_->clear();
    QString text = Texts::tr("pixel %1, %2").arg(pixel->x(), 0, 'f', 1).arg(pixel->y(), 0, 'f', 1);
    const auto& fit = points_.Standing().fit;
    if (fit || world_) {
        util::PlanePoint at{pixel->x(), pixel->y()}, ground = fit ? fit->Ground(at) : world_->Ground(at);
        text += "   " + Texts::tr("ground %1, %2").arg(Fixed(ground.x, 2), Fixed(ground.y, 2));
    }
    place_->setText(text);
}

void frmGeoRef::Select(int number) {
    panel_->Select(number);
    Picture().Select(number);
    ShowMarks();
    if (number == 0) return;
    if (auto pixel = NumbersOf(points_.Points()[std::size_t(number) - 1].pixel))
        Picture().ShowPlace({pixel->x, pixel->y});
}

/// Without a selected point, the first that has no ground yet gets it.
void frmGeoRef::TakeGround(util::PlanePoint ground) {
    int number = panel_->Selected();
    const georef::PointEntries& points = points_.Points();
    if (number == 0) {
        auto open = std::find_if(points.begin(), points.end(),
                                 [](const georef::PointEntry& point) { return point.ground.empty(); });
        if (open == points.end()) return Say(Texts::tr("Click the point on the image first"));
        number = int(open - points.begin()) + 1;
    }
    points_.SetGround(number, georef::GroundEntry(ground));
    Select(number);
}

/// For points that have no ground yet.
void frmGeoRef::GroundFromWorldFile() {
    if (!world_) return Say(Texts::tr("No world file lies beside the image"));
    georef::PointEntries points = points_.Points();
    for (georef::PointEntry& point : points)
        if (auto pixel = NumbersOf(point.pixel); pixel && point.ground.empty())
            point.ground = georef::ExactGroundEntry(world_->Ground(*pixel));
    points_.SetPoints(std::move(points), Texts::tr("Ground from the world file"));
}

void frmGeoRef::RemoveSelected() {
    if (int number = panel_->Selected()) points_.Remove(number);
}

std::string frmGeoRef::ReadGround(const std::string& typed) {
    georef::GroundReading reading = georef::ReadGround(typed);
    georef::GridEntry entry{georef::GroundEntry(reading.place), reading.said};
    if (reading.kind == georef::GroundKind::None) entry.entry = typed;
    if (reading.kind == georef::GroundKind::Degrees) entry = georef::ToGridEntry(typed, Grid());
    if (!typed.empty()) Say(Said(entry.said));
    return entry.entry.empty() ? typed : entry.entry;
}

coords::frmLatLng& frmGeoRef::Grid() {
    if (!grid_) grid_ = std::make_unique<coords::frmLatLng>(run_);
    return *grid_;
}

georef::GeorefFile frmGeoRef::File() const {
    return {points_.Points(), image_.width, image_.height, panel_->chkRotate->isChecked(), points_.Order()};
}

void frmGeoRef::Save() {
    saving_.stop();
    if (isSaved_ || !maySave_ || image_.path.empty()) return;
    isSaved_ = true;
    try {
        georef::WriteGeorefFile(georef::GeorefFilePath(image_.path), File());
    } catch (const std::exception& error) {
        Say(Texts::tr("The points are not saved: %1").arg(Text(error.what())));
    }
}

// --- The helper program

void frmGeoRef::btnGeoRef_Click() {
    if (image_.path.empty() || isRunning_) return;
    saving_.stop();
    isSaved_ = true;
    auto outcome = std::make_shared<georef::GeorefOutcome>();
    Start([image = image_, file = File(),
           outcome](config::Run& run) { *outcome = georef::Georeference(run, image, file); },
          [this, outcome, path = image_.path] {
              if (!outcome->rotatedImage.empty()) return LoadJPG(outcome->rotatedImage);
              if (path != image_.path) return;
              if (outcome->converted)
                  points_.SetPoints(*outcome->converted, Texts::tr("Convert to the grid"));
              if (outcome->worldFile.empty()) return;
              ReadWorldFile();
              Say(Texts::tr("Written: %1").arg(Text(platform::NativePath(outcome->worldFile))));
          });
}

void frmGeoRef::btnCarve_Click() {
    if (image_.path.empty() || isRunning_) return;
    saving_.stop();
    isSaved_ = true;
    auto tile = std::make_shared<std::string>();
    Start(
        [image = image_, file = File(), tile](config::Run& run) { *tile = georef::Carve(run, image, file); },
        [this, tile] {
            if (!tile->empty() && carved) carved(Text(platform::NativePath(*tile)));
        });
}

/// Of an image that is delivered with a world file in degrees.
void frmGeoRef::ProjectDegrees() {
    if (isRunning_ || !platform::FileExists(georef::DegreesWorldFilePath(image_.path))) return;
    Start([image = image_](config::Run& run) { georef::ProjectDegrees(run, image); },
          [this] { ReadWorldFile(); });
}

void frmGeoRef::Start(std::function<void(config::Run&)> work, std::function<void()> ended) {
    worker_.reset();
    SetRunning(true);
    auto perform = [this, work = std::move(work)] {
        config::Run run(installation_, work_);
        try {
            try {
                work(run);
            } catch (const std::exception& error) {
                run.Ui().ShowMessage(error.what());
            }
        } catch (const platform::Stopped&) {
            // Cancelled: there is nobody to be told.
        }
    };
    worker_ = std::make_unique<Worker>(work_, perform, [this, ended = std::move(ended)] {
        SetRunning(false);
        ended();
    });
}

void frmGeoRef::SetRunning(bool isRunning) {
    isRunning_ = isRunning;
    panel_->SetRunning(isRunning, !image_.path.empty());
    if (isRunning) Say(Texts::tr("Working on the image…"));
}

void frmGeoRef::Say(const QString& line) {
    statusBar()->showMessage(line);
}

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/ExportDgn.h"

#include "drawing/DrawingFile.h"
#include "drawing/Palette.h"
#include "export/LayerLoop.h"
#include "export/dxf/CadSettings.h"
#include "gis/DesignEnd.h"
#include "gis/EntityShape.h"
#include "gis/Ogr.h"
#include "gis/TargetStyle.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/ScratchFolder.h"
#include "raster/Gdal.h"
#include "util/ShortList.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cpl_string.h>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace vexlator::gis {

namespace {

constexpr std::size_t levels = 63;
constexpr double millimetres = 1000;

/// The nearest of the first colours of the format's own table.
int ColourIndexOf(drawing::Colour colour) {
    constexpr std::array<std::uint32_t, 10> table = {0xFFFFFF, 0x0000FF, 0x00FF00, 0xFF0000, 0xFFFF00,
                                                     0xFF00FF, 0xFF7F00, 0x00FFFF, 0x404040, 0xC0C0C0};
    std::uint32_t rgb = drawing::RgbOf(colour);
    if (rgb == 0) return 0;
    auto distance = [rgb](std::uint32_t other) {
        int sum = 0;
        for (int shift : {0, 8, 16}) {
            int difference = static_cast<int>(rgb >> shift & 0xFF) - static_cast<int>(other >> shift & 0xFF);
            sum += difference * difference;
        }
        return sum;
    };
    return static_cast<int>(std::ranges::min_element(table, {}, distance) - table.begin());
}

/// Steps of about a sixth of a millimetre.
int WeightOf(std::int32_t lineWeight) {
    constexpr std::int32_t step = 18, heaviest = 31;
    return std::clamp((lineWeight + step / 2) / step, 0, heaviest);
}

int LineStyleOf(std::string_view lineType) {
    constexpr std::pair<std::string_view, int> styles[] = {{"DOT", 1},     {"DOTTED", 1},  {"HIDDEN", 2},
                                                           {"DASHED", 3},  {"DASHDOT", 4}, {"DIVIDE", 6},
                                                           {"PHANTOM", 6}, {"CENTER", 7}};
    for (const auto& [name, style] : styles)
        if (platform::SameNoCase(name, lineType)) return style;
    return 0;
}

class DesignFile {
public:
    DesignFile(config::Run& run, const std::string& drawingPath, const std::string& path,
               config::ConversionReport& report)
        : run_(run), path_(path), report_(report), settings_(exporter::ReadCadSettings(run)) {
        begun_.view = run.Ui().ShowForm("vdconv");
        begun_.file = std::make_unique<drawing::DrawingFile>(drawingPath);
        begun_.outcome.target = path;
    }

    config::Outcome Write() {
        std::vector<exporter::ExportLayer> layers = exporter::FindLayers(begun_, exporter::LayerZero::Export);
        levelOf_.resize(begun_.file->Current().layerCount());
        for (std::size_t i = 0; i < layers.size(); ++i) levelOf_[layers[i].index] = 1 + i % levels;
        lost_.resize(levelOf_.size());
        leftOut_.resize(levelOf_.size());
        platform::ScratchFolder scratch(path_);
        const std::string made = scratch.Path() + "/design.dgn";
        RequireRoom(made);
        WriteFeatures(made);
        // GDAL does not tell that a disk is full.
        if (!HasDesignEnd(platform::MappedFile(made).Text()))
            throw platform::WriteError(platform::NativePath(path_), "it could not be written to its end");
        TellLevels(layers);
        begun_.outcome.layers = layers.size();
        platform::CopyWholeFile(made, path_);
        return begun_.outcome;
    }

private:
    void WriteFeatures(const std::string& made) {
        char** options = nullptr;
        for (const char* option : {"3D=NO", "MASTER_UNIT_NAME=m", "SUB_UNIT_NAME=mm",
                                   "SUB_UNITS_PER_MASTER_UNIT=1000", "UOR_PER_SUB_UNIT=1", "ORIGIN=0,0,0"})
            options = CSLAddString(options, option);
        raster::TakeReason();
        raster::Dataset dataset(
            GDALCreate(GDALGetDriverByName("DGN"), made.c_str(), 0, 0, 0, GDT_Unknown, options));
        layer_ = dataset ? GDALDatasetCreateLayer(dataset.get(), "elements", nullptr, wkbUnknown, options)
                         : nullptr;
        CSLDestroy(options);
        // GDAL cannot close a file that it could not begin.
        if (!layer_) static_cast<void>(dataset.release());  // NOLINT(bugprone-unused-return-value)
        Require(layer_ != nullptr);
        feature_.reset(OGR_F_Create(OGR_L_GetLayerDefn(layer_)));
        OGRFeatureDefnH definition = OGR_L_GetLayerDefn(layer_);
        level_ = OGR_FD_GetFieldIndex(definition, "Level");
        text_ = OGR_FD_GetFieldIndex(definition, "Text");
        colour_ = OGR_FD_GetFieldIndex(definition, "ColorIndex");
        weight_ = OGR_FD_GetFieldIndex(definition, "Weight");
        style_ = OGR_FD_GetFieldIndex(definition, "Style");
        std::uint64_t done = 0, total = begun_.file->EntityCount();
        begun_.ForEachChunk([&](const drawing::Drawing& chunk) {
            chunk.forEach([&](const drawing::EntityView& entity) {
                begun_.view->Progress(++done, total);
                if (levelOf_[entity.layerIndex()] > 0) Add(entity);
            });
        });
        feature_.reset();
    }

    /// GDAL crashes where a disk has no room for the beginning of a file.
    static void RequireRoom(const std::string& path) {
        constexpr std::size_t beginning = std::size_t{1} << 14;
        platform::ReplaceFile(path, std::string(beginning, '\0'));
        platform::RemoveFile(path);
    }

    void Require(bool ok) const {
        if (!ok) throw platform::WriteError(platform::NativePath(path_), raster::TakeReason());
    }

    void Add(const drawing::EntityView& entity) {
        ShapeKind kind = ShapeKindOf(entity);
        Geometry geometry = GeometryOf(entity, kind);
        if (!geometry) {
            ++leftOut_[entity.layerIndex()];
            return;
        }
        for (drawing::ValueCursor values = entity.xproperties().values(); !values.AtEnd();)
            if (!values.Next().empty()) ++lost_[entity.layerIndex()];
        OGR_F_SetFID(feature_.get(), OGRNullFID);
        OGR_F_SetFieldInteger(feature_.get(), level_, static_cast<int>(levelOf_[entity.layerIndex()]));
        const drawing::Style& style = entity.style();
        OGR_F_SetFieldInteger(feature_.get(), colour_, ColourIndexOf(style.colour));
        OGR_F_SetFieldInteger(feature_.get(), weight_, WeightOf(style.lineWeight));
        OGR_F_SetFieldInteger(feature_.get(), style_, LineStyleOf(style.lineType));
        OGR_F_SetFieldNull(feature_.get(), text_);
        bool isText = entity.kindCode() == drawing::Kind::Text;
        if (isText) OGR_F_SetFieldString(feature_.get(), text_, std::string(entity.text()).c_str());
        bool isSymbol = kind == ShapeKind::Place && !isText;
        OGR_F_SetStyleString(feature_.get(), isSymbol ? "" : StyleText(entity, kind).c_str());
        OGR_F_SetGeometryDirectly(feature_.get(), geometry.release());
        Require(OGR_L_CreateFeature(layer_, feature_.get()) == OGRERR_NONE);
        ++begun_.outcome.features;
    }

    /// Null for what the file cannot hold.
    Geometry GeometryOf(const drawing::EntityView& entity, ShapeKind kind) {
        if (kind == ShapeKind::Nothing || kind == ShapeKind::LeftOut) return nullptr;
        points_.clear();
        heights_.clear();
        AppendVertices(entity, kind, points_, heights_);
        for (util::PlanePoint& point : points_)
            if (!Move(point)) return nullptr;
        if (points_.empty()) return nullptr;
        if (kind == ShapeKind::Place) {
            Geometry place(OGR_G_CreateGeometry(wkbPoint));
            OGR_G_SetPoint_2D(place.get(), 0, points_[0].x, points_[0].y);
            return place;
        }
        constexpr int stride = sizeof(util::PlanePoint);
        bool isArea = kind == ShapeKind::Area;
        Geometry line(OGR_G_CreateGeometry(isArea ? wkbLinearRing : wkbLineString));
        OGR_G_SetPoints(line.get(), static_cast<int>(points_.size()), &points_[0].x, stride, &points_[0].y,
                        stride, nullptr, 0);
        if (!isArea) return line;
        Geometry area(OGR_G_CreateGeometry(wkbPolygon));
        OGR_G_AddGeometryDirectly(area.get(), line.release());
        return area;
    }

    /// False for a place beyond the whole numbers of the format.
    bool Move(util::PlanePoint& point) const {
        double x = point.x - settings_.originX, y = point.y - settings_.originY;
        double sine = std::sin(settings_.turn), cosine = std::cos(settings_.turn);
        point = {x * cosine - y * sine, x * sine + y * cosine};
        constexpr double farthest = std::numeric_limits<std::int32_t>::max() / millimetres;
        return std::fabs(point.x) < farthest && std::fabs(point.y) < farthest;
    }

    void TellLevels(const std::vector<exporter::ExportLayer>& layers) {
        constexpr std::size_t mostNamed = levels;
        util::ShortList list(mostNamed);
        for (const exporter::ExportLayer& layer : layers) {
            list.Add(std::to_string(levelOf_[layer.index]) + " " +
                     util::ShortList::Shortened(layer.layer.name));
            using Kind = config::LossReport::Kind;
            report_.Lose(Kind::NoColumn, layer.layer.name, "", lost_[layer.index]);
            report_.Lose(Kind::LeftOut, layer.layer.name, "without place or too far", leftOut_[layer.index]);
        }
        if (!list.Empty()) run_.Ui().Report("levels: " + list.Text());
    }

    config::Run& run_;
    std::string path_;
    config::ConversionReport& report_;
    exporter::CadSettings settings_;
    exporter::BegunExport begun_;
    OGRLayerH layer_ = nullptr;
    Feature feature_;
    int level_ = -1, text_ = -1, colour_ = -1, weight_ = -1, style_ = -1;
    std::vector<std::size_t> levelOf_;  ///< by layer; 0: not exported
    std::vector<std::uint64_t> lost_, leftOut_;
    std::vector<util::PlanePoint> points_;
    std::vector<double> heights_;
};

}  // namespace

config::Outcome ExportDgn(config::Run& run, const std::string& drawingPath, const std::string& path,
                          config::ConversionReport& report) {
    return DesignFile(run, drawingPath, path, report).Write();
}

}  // namespace vexlator::gis

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "BackgroundBuilder/TransferFormat.h"

#include "BackgroundBuilder/ScratchDrawing.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "raster/Gdal.h"
#include "util/Angles.h"
#include "util/Counted.h"
#include "util/Geometry.h"

#include <cmath>
#include <memory>
#include <ogr_api.h>
#include <string>
#include <vector>

namespace vexlator::backgroundbuilder {

namespace {

struct DestroyFeature {
    void operator()(OGRFeatureH feature) const { OGR_F_Destroy(feature); }
};
using Feature = std::unique_ptr<void, DestroyFeature>;

/// A volume whose end got lost reads as a smaller one.
void RequireTrailer(const platform::MappedFile& file) {
    std::string_view text = file.Text();
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == '\x1a'))
        text.remove_suffix(1);
    std::size_t lineEnd = text.find_last_of("\r\n");
    std::string_view last = lineEnd == std::string_view::npos ? text : text.substr(lineEnd + 1);
    if (!last.starts_with("99"))
        throw platform::ReadError(file.Name(), "", "it ends before the trailer of its volume");
}

class TransferFile {
public:
    TransferFile(const std::string& path, drawing::DrawingSink& sink)
        : path_(path), sink_(sink), drawing_(sink.Drawing()) {
        RequireTrailer(platform::MappedFile(path));
        constexpr const char* drivers[] = {"UK .NTF", nullptr};
        dataset_ = raster::Open(path, GDAL_OF_VECTOR, drivers,
                                "not a file of the National Transfer Format that can be read");
    }

    void Read(ui::UserInterface& show) {
        for (int i = 0; i < GDALDatasetGetLayerCount(dataset_.get()); ++i)
            ReadLayer(GDALDatasetGetLayer(dataset_.get(), i));
        std::string file = platform::NativePath(path_);
        if (features_ == 0) throw platform::ReadError(file, "", "no features were found");
        show.Report(file + ": " + util::Counted(features_, "feature") +
                    (withoutPlace_ == 0
                         ? ""
                         : "; without coordinates, left out: " + util::GroupedCount(withoutPlace_)));
    }

private:
    void ReadLayer(OGRLayerH layer) {
        OGR_L_ResetReading(layer);
        FindFields(OGR_L_GetLayerDefn(layer));
        while (Feature feature{OGR_L_GetNextFeature(layer)}) {
            raster::RequireNoError(path_);
            if (OGRGeometryH geometry = OGR_F_GetGeometryRef(feature.get()))
                AddFeature(OGR_L_GetName(layer), feature.get(), geometry);
            else
                ++withoutPlace_;
        }
        raster::RequireNoError(path_);
    }

    void FindFields(OGRFeatureDefnH definition) {
        auto find = [&](const char* name) { return OGR_FD_GetFieldIndex(definition, name); };
        code_ = find("FEAT_CODE");
        if (code_ < 0) code_ = find("TEXT_CODE");
        text_ = find("TEXT");
        height_ = find("TEXT_HT_GROUND");
        position_ = find("DIG_POSTN");
        angle_ = find("ORIENT");
    }

    static std::string ValueOf(OGRFeatureH feature, int field) {
        bool isSet = field >= 0 && OGR_F_IsFieldSetAndNotNull(feature, field);
        return isSet ? platform::AsUtf8(OGR_F_GetFieldAsString(feature, field)) : "";
    }
    static double NumberOf(OGRFeatureH feature, int field) {
        return field < 0 ? 0 : OGR_F_GetFieldAsDouble(feature, field);
    }

    void AddFeature(const char* layer, OGRFeatureH feature, OGRGeometryH geometry) {
        std::string code = ValueOf(feature, code_);
        drawing_.setActiveLayer(code.empty() ? layer : code);
        ++features_;
        AddGeometry(feature, geometry);
        sink_.FeatureDone();
    }

    void AddGeometry(OGRFeatureH feature, OGRGeometryH geometry) {
        if (int parts = OGR_G_GetGeometryCount(geometry); parts > 0) {
            for (int i = 0; i < parts; ++i) AddGeometry(feature, OGR_G_GetGeometryRef(geometry, i));
            return;
        }
        int count = OGR_G_GetPointCount(geometry);
        if (count == 0) return;
        if (count > 1)
            AddLine(geometry, count);
        else
            AddPlace(feature, {OGR_G_GetX(geometry, 0), OGR_G_GetY(geometry, 0)});
        AddAttributes(feature);
    }

    void AddLine(OGRGeometryH geometry, int count) {
        drawing_.addPolyline();
        constexpr int stride = sizeof(util::PlanePoint);
        std::span<util::PlanePoint> points = drawing_.extendPlan(static_cast<std::size_t>(count));
        OGR_G_GetPoints(geometry, &points[0].x, stride, &points[0].y, stride, nullptr, 0);
    }

    /// A point, or a name: its position code counts the corners and middles of its box, from the foot of its
    /// left edge up, then those of its middle and of its right edge. Drawings know the first one.
    void AddPlace(OGRFeatureH feature, util::PlanePoint place) {
        std::string text = ValueOf(feature, text_);
        if (text.empty()) {
            drawing_.addPoint({place.x, place.y, 0});
            return;
        }
        constexpr double widthOfHeight = 0.65;
        constexpr int steps = 3;  // of an edge of the box
        double height = NumberOf(feature, height_),
               angle = NumberOf(feature, angle_) / util::degreesPerRadian;
        double width = widthOfHeight * height * static_cast<double>(platform::CountCharacters(text));
        int position = static_cast<int>(NumberOf(feature, position_));
        int column = position / steps, row = position % steps;
        double along = width * column / 2, up = height * row / 2;
        place.x -= along * std::cos(angle) - up * std::sin(angle);
        place.y -= along * std::sin(angle) + up * std::cos(angle);
        drawing_.addText({place.x, place.y, 0}, text, height, angle);
    }

    void AddAttributes(OGRFeatureH feature) {
        std::vector<std::string> names, values;
        for (int field = 0; field < OGR_F_GetFieldCount(feature); ++field) {
            std::string value = ValueOf(feature, field);
            if (value.empty()) continue;
            names.emplace_back(OGR_Fld_GetNameRef(OGR_F_GetFieldDefnRef(feature, field)));
            values.push_back(std::move(value));
        }
        if (names.empty()) return;
        drawing_.beginValues(drawing_.attributeSet(names));
        for (const std::string& value : values) drawing_.appendValue(value);
    }

    const std::string& path_;
    drawing::DrawingSink& sink_;
    drawing::Drawing& drawing_;
    raster::Dataset dataset_;
    int code_ = -1, text_ = -1, height_ = -1, position_ = -1, angle_ = -1;  ///< fields of the layer
    std::uint64_t features_ = 0, withoutPlace_ = 0;
};

}  // namespace

void BuildTransferFormat(config::Run& run, const Command& command) {
    raster::StartGdal();
    ScratchDrawing scratch(run, command.target);
    for (const std::string& source : SourcesOf(command)) TransferFile(source, scratch.Sink()).Read(run.Ui());
    scratch.Sink().Commit();
    scratch.BuildPackage(command.target);
}

}  // namespace vexlator::backgroundbuilder

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/ExportDrawing.h"

#include "coords/frmLatLng.h"
#include "drawing/DrawingFile.h"
#include "export/LayerLoop.h"
#include "gis/TargetLayer.h"
#include "gis/TargetSystem.h"
#include "platform/OutputSet.h"
#include "platform/Paths.h"
#include "platform/ScratchFolder.h"
#include "raster/Gdal.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>
#include <cpl_conv.h>
#include <deque>
#include <memory>
#include <optional>

namespace vexlator::gis {

namespace {

class Export {
public:
    Export(config::Run& run, const GisFormat& format, const std::string& drawingPath,
           const std::string& folder, const std::string& name, config::ConversionReport& report)
        : run_(run), format_(format), folder_(folder), name_(name), report_(report) {
        begun_.view = run.Ui().ShowForm("vdconv");
        begun_.file = std::make_unique<drawing::DrawingFile>(drawingPath);
        begun_.outcome.target = format.layersShareFile ? PathOf(name) : folder;
    }

    config::Outcome Start() {
        layers_ = exporter::FindLayers(begun_, exporter::LayerZero::Export);
        if (format_.isInDegrees) converter_.emplace(run_);
        for (const exporter::ExportLayer& layer : layers_)
            targets_.emplace_back(run_, format_, layer, begun_.file->Current(),
                                  converter_ ? &*converter_ : nullptr);
        exporter::WriteLayers(
            run_, begun_, layers_,
            [&](std::size_t layer, const exporter::LayerPart& part) { targets_[layer].Look(part); },
            [](std::size_t) { return std::uint64_t{0}; });
        platform::ScratchFolder scratch(util::JoinPath(folder_, name_));
        scratch_ = scratch.Path();
        WriteFeatures();
        if (HasPlaces()) Commit();
        return begun_.outcome;
    }

private:
    std::string PathOf(const std::string& name) const {
        return util::JoinPath(folder_, name + "." + std::string(format_.code));
    }

    void WriteFeatures() {
        SpatialReference system = TargetSystem(run_, format_, converter_.has_value());
        CPLSetConfigOption("OGR_SQLITE_SYNCHRONOUS", "OFF");  // nobody sees the file before it is whole
        CPLSetConfigOption("OGR_SQLITE_JOURNAL", "OFF");
        if (format_.layersShareFile) CreateDataset(name_);
        for (std::size_t i = 0; i < layers_.size(); ++i) CreateLayer(i, system.get());
        for (const raster::Dataset& dataset : datasets_) GDALDatasetStartTransaction(dataset.get(), 0);
        exporter::WriteLayers(
            run_, begun_, layers_,
            [&](std::size_t layer, const exporter::LayerPart& part) { targets_[layer].Write(part); },
            [&](std::size_t layer) { return targets_[layer].Finish(report_); });
        CloseDatasets();
    }

    GDALDatasetH CreateDataset(const std::string& name) {
        std::string path = scratch_ + "/" + name + "." + std::string(format_.code);
        raster::TakeReason();
        raster::Dataset dataset(
            GDALCreate(GDALGetDriverByName(format_.driver), path.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
        if (!dataset) throw platform::WriteError(platform::NativePath(PathOf(name)), raster::TakeReason());
        datasets_.push_back(std::move(dataset));
        return datasets_.back().get();
    }

    void CreateLayer(std::size_t number, OGRSpatialReferenceH system) {
        const exporter::ExportLayer& layer = layers_[number];
        bool shares = format_.layersShareFile;
        std::string file = shares ? name_ : layer.fileName;
        targets_[number].Create(shares ? datasets_.front().get() : CreateDataset(file), system,
                                shares ? layer.layer.name : file, platform::NativePath(PathOf(file)),
                                OptionsFor(number));
    }

    std::vector<std::string> OptionsFor(std::size_t number) const {
        if (format_.isInDegrees) return {"RFC7946=YES", "COORDINATE_PRECISION=9", "WRITE_NAME=YES"};
        // An index has no room for features without a place.
        if (format_.code == "FGB")
            return {targets_[number].HasNothing() ? "SPATIAL_INDEX=NO" : "SPATIAL_INDEX=YES"};
        if (format_.code != "TAB") return {};
        std::vector<std::string> options{layers_[number].windows ? "ENCODING=WindowsLatin1"
                                                                 : "ENCODING=UTF-8"};
        if (const auto& box = targets_[number].Bounds()) {
            // Coordinates are whole numbers of a step between the bounds.
            std::string bounds = "BOUNDS=";
            for (double value : {box->MinX - 1, box->MinY - 1, box->MaxX + 1, box->MaxY + 1})
                bounds += (bounds.ends_with('=') ? "" : ",") + util::FormatShortest(std::round(value));
            options.push_back(bounds);
        }
        return options;
    }

    /// GDAL writes the last bytes now; only its report tells whether it could.
    void CloseDatasets() {
        raster::TakeReason();
        for (raster::Dataset& dataset : datasets_) {
            GDALDatasetCommitTransaction(dataset.get());
            GDALFlushCache(dataset.get());
            dataset.reset();
        }
        try {
            raster::RequireNoError(scratch_);
        } catch (const platform::ReadError& error) {
            throw platform::WriteError(platform::NativePath(begun_.outcome.target), error.Reason());
        }
    }

    /// Degrees are not written when there is no conversion to them.
    bool HasPlaces() {
        std::uint64_t places = 0;
        for (const TargetLayer& target : targets_) places += target.WithPlace();
        if (!converter_ || places > 0 || begun_.outcome.features == 0) return true;
        run_.Ui().ShowMessage(platform::NativePath(begun_.outcome.target) +
                              ": not written, because none of its features has a position");
        begun_.outcome.status = config::Outcome::Status::Failed;
        return false;
    }

    void Commit() {
        platform::OutputSet files;
        for (const std::string& name : platform::ListFiles(scratch_)) {
            platform::MappedFile file(scratch_ + "/" + name);
            platform::OutputFile& output = files.Add(util::JoinPath(folder_, name));
            constexpr std::size_t step = std::size_t{1} << 20;
            for (std::string_view left = file.Text(); !left.empty();) {
                output.Write(left.substr(0, step));
                left.remove_prefix(std::min(step, left.size()));
            }
            platform::RemoveFile(scratch_ + "/" + name);
        }
        files.Commit();
    }

    config::Run& run_;
    const GisFormat& format_;
    std::string folder_, name_;
    config::ConversionReport& report_;
    exporter::BegunExport begun_;
    std::vector<exporter::ExportLayer> layers_;
    std::optional<coords::frmLatLng> converter_;
    std::deque<TargetLayer> targets_;
    std::string scratch_;
    std::vector<raster::Dataset> datasets_;
};

}  // namespace

config::Outcome ExportDrawing(config::Run& run, const GisFormat& format, const std::string& drawingPath,
                              const std::string& folder, const std::string& name,
                              config::ConversionReport& report) {
    return Export(run, format, drawingPath, folder, name, report).Start();
}

}  // namespace vexlator::gis

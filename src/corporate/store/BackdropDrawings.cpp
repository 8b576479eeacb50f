// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/BackdropDrawings.h"

#include "corporate/store/ImportFromStore.h"
#include "corporate/store/Store.h"
#include "gis/Ogr.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

namespace vexlator::corporate {

namespace {

using Tile = std::pair<std::int64_t, std::int64_t>;  ///< row from the south, column from the west

/// The first vertex of a feature; nothing without one.
std::optional<std::pair<double, double>> FirstVertex(OGRFeatureH feature) {
    OGRGeometryH geometry = OGR_F_GetGeometryRef(feature);
    while (geometry && OGR_G_GetGeometryCount(geometry) > 0) geometry = OGR_G_GetGeometryRef(geometry, 0);
    if (!geometry || OGR_G_GetPointCount(geometry) == 0) return std::nullopt;
    std::pair<double, double> place(OGR_G_GetX(geometry, 0), OGR_G_GetY(geometry, 0));
    bool isPlace = std::isfinite(place.first) && std::isfinite(place.second);
    return isPlace ? std::optional(place) : std::nullopt;
}

class Backdrop {
public:
    Backdrop(config::Run& run, std::string source, const BackdropGrid& grid)
        : run_(run), source_(std::move(source)), grid_(grid) {
        const std::string location = SourceOf(source_);
        raster::Dataset dataset = gis::OpenSource(FormatOf(location), location);
        for (int i = 0; i < GDALDatasetGetLayerCount(dataset.get()); ++i) {
            OGRLayerH layer = GDALDatasetGetLayer(dataset.get(), i);
            OGR_L_ResetReading(layer);
            while (gis::Feature feature{OGR_L_GetNextFeature(layer)})
                if (auto place = FirstVertex(feature.get())) {
                    ++tiles_[TileOf(*place)];
                    ++total_;
                }
        }
        raster::RequireNoError(location);
    }

    void Make(const std::string& target, config::ConversionReport& report) {
        constexpr std::size_t longestName = 12;
        stem_ = util::JoinPath(
            util::FolderOf(target),
            std::string(platform::FirstCharacters(util::BaseNameOf(target), longestName)) + "_");
        if (total_ <= grid_.mostEntities || grid_.interval <= 0)
            MakeDrawing(nullptr, report);
        else
            for (const auto& [tile, count] : tiles_)
                for (std::uint64_t begin = 0; begin < count; begin += grid_.mostEntities)
                    MakeDrawing(FilterFor(tile, begin), report);
        while (platform::RemoveFile(PathOf(++number_))) {
        }
    }

private:
    Tile TileOf(const std::pair<double, double>& place) const {
        if (grid_.interval <= 0) return {};
        constexpr double farthest = 1e15;
        auto index = [&](double value) {
            return static_cast<std::int64_t>(
                std::clamp(std::floor(value / grid_.interval), -farthest, farthest));
        };
        return {index(place.second), index(place.first)};
    }

    /// Features of a tile, from a number on.
    gis::FeatureFilter FilterFor(const Tile& tile, std::uint64_t begin) const {
        return [this, tile, begin, number = std::uint64_t{0}](OGRFeatureH feature) mutable {
            auto place = FirstVertex(feature);
            if (!place || TileOf(*place) != tile) return false;
            std::uint64_t own = number++;
            return own >= begin && own < begin + grid_.mostEntities;
        };
    }

    std::string PathOf(std::uint64_t number) const { return stem_ + std::to_string(number) + ".VDF"; }

    void MakeDrawing(const gis::FeatureFilter& isWanted, config::ConversionReport& report) {
        const std::string path = PathOf(++number_);
        platform::RemoveFile(path);  // an import adds to a drawing that is there
        config::Outcome outcome = ImportFromStore(run_, source_, path, report, isWanted);
        report.outcome.features += outcome.features;
        report.outcome.layers = std::max(report.outcome.layers, outcome.layers);
        if (outcome.status != config::Outcome::Status::Done) report.outcome.status = outcome.status;
    }

    config::Run& run_;
    std::string source_, stem_;
    const BackdropGrid& grid_;
    std::map<Tile, std::uint64_t> tiles_;  ///< with their number of features
    std::uint64_t total_ = 0, number_ = 0;
};

}  // namespace

void MakeBackdropDrawings(config::Run& run, const std::string& source, const std::string& target,
                          const BackdropGrid& grid, config::ConversionReport& report) {
    Backdrop(run, source, grid).Make(target, report);
}

}  // namespace vexlator::corporate

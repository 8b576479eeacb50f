// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ov2/PoiLayer.h"

#include "export/FeaturePlace.h"
#include "util/Counted.h"
#include "util/Text.h"

#include <cmath>

namespace vexlator::exporter {

namespace {

/// The first value that is not empty, else the feature code.
std::string PoiName(drawing::EntityView entity, const std::string& code) {
    for (drawing::ValueCursor values = entity.xproperties().values(); !values.AtEnd();) {
        std::string_view value = util::Trim(values.Next());
        if (!value.empty()) return std::string(value);
    }
    return code;
}

bool IsDegrees(const util::PlanePoint& place) {
    return std::fabs(place.x) <= 180 && std::fabs(place.y) <= 90;
}

}  // namespace

PoiLayer::PoiLayer(config::Run& run, coords::frmLatLng& converter, const ExportLayer& layer,
                   platform::OutputFile& file)
    : run_(run), converter_(converter), layer_(layer), writer_(file) {}

void PoiLayer::Write(const LayerPart& part) {
    constexpr std::size_t batch = 16384;
    for (drawing::EntityView entity : part) {
        if (entity.vertexCount() == 0) {
            ++unplaced_;
            continue;
        }
        places_.push_back(PlaceOf(entity).at);
        names_.push_back(PoiName(entity, layer_.layer.name));
        if (places_.size() == batch) WriteBatch();
    }
    WriteBatch();
}

/// A place that cannot be converted keeps its grid coordinates, which must not pass for degrees.
void PoiLayer::WriteBatch() {
    const std::vector<util::PlanePoint> grid = places_;
    bool all = converter_.GridToLatLng(places_, {}, coords::Rounding::None) == 0;
    for (std::size_t i = 0; i < places_.size(); ++i) {
        bool converted =
            all || places_[i] != grid[i] || converter_.GridToLatLng(grid[i].x, grid[i].y, 0, false);
        if (!converted || !IsDegrees(places_[i])) {
            ++unplaced_;
            continue;
        }
        writer_.AddPoint(places_[i], names_[i]);
        ++points_;
    }
    places_.clear();
    names_.clear();
}

std::uint64_t PoiLayer::Finish() {
    run_.Losses().Count(config::LossReport::Kind::Replaced, layer_.layer.name, "name", writer_.Replaced());
    if (unplaced_ > 0)
        run_.Ui().Report(layer_.layer.name + ": " + util::Counted(unplaced_, "feature") +
                         " left out, because it has no position inside the coordinate conversion");
    return points_;
}

}  // namespace vexlator::exporter

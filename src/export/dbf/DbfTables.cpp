// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dbf/DbfTables.h"

#include "export/dbf/PlaceColumns.h"

namespace vexlator::exporter {

DbfLayer::DbfLayer(config::Run& run, const ExportLayer& layer, const DbfSettings& settings,
                   const std::string& basePath, platform::OutputSet& files)
    : run_(run),
      layer_(layer),
      hasPlace_(settings.polyCentroid),
      table_(run, layer, settings.suppressNA, basePath, files,
             settings.polyCentroid ? PlaceColumns(false) : std::vector<formats::DbfColumn>()) {}

void DbfLayer::Write(const LayerPart& part) {
    for (drawing::EntityView entity : part) {
        if (!HasRecord(entity)) {
            leftOut_.Add(entity.kindCode());
            continue;
        }
        if (hasPlace_) ReadPlace(entity, place_);
        table_.Add(entity, std::span(place_).first(place_.empty() ? 0 : 2));
        ++records_;
    }
}

std::uint64_t DbfLayer::Finish() {
    table_.Finish();
    leftOut_.Report(run_, layer_.layer.name);
    return records_;
}

}  // namespace vexlator::exporter

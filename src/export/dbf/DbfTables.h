// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "export/dbf/DbfSettings.h"
#include "export/table/LayerTable.h"
#include "platform/OutputSet.h"

#include <cstdint>
#include <string>
#include <vector>

namespace vexlator::exporter {

/// Whether an entity has a record.
inline bool HasRecord(drawing::EntityView entity) {
    using enum drawing::Kind;
    return entity.kindCode() == Point || entity.kindCode() == Insert || entity.kindCode() == Polyline;
}

/// Writes the table of one layer.
class DbfLayer {
public:
    DbfLayer(config::Run& run, const ExportLayer& layer, const DbfSettings& settings,
             const std::string& basePath, platform::OutputSet& files);

    void Write(const LayerPart& part);
    /// Returns the number of records.
    std::uint64_t Finish();

private:
    config::Run& run_;
    const ExportLayer& layer_;
    bool hasPlace_;
    LayerTable table_;
    LeftOutEntities leftOut_;
    std::vector<std::string> place_;
    std::uint64_t records_ = 0;
};

}  // namespace vexlator::exporter

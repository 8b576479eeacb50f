// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "export/ColumnMatch.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "formats/dbf/DbfWriter.h"
#include "platform/OutputSet.h"

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

namespace vexlator::exporter {

/// One table of all layers, as tree surveys have it: feature code, easting, northing, level, then the
/// attributes of all layers' templates, each name once.
class SurveyTable {
public:
    SurveyTable(config::Run& run, const std::vector<ExportLayer>& layers, bool suppressNA,
                const std::string& basePath, platform::OutputSet& files);

    void Write(std::size_t layer, const LayerPart& part);
    /// Ends the table and counts the losses of its values.
    void Finish();
    /// Records of a layer so far.
    std::uint64_t RecordsOf(std::size_t layer) const { return parts_[layer].records; }

private:
    struct Part {
        ColumnMatch match;
        LeftOutEntities leftOut = {};
        std::uint64_t records = 0;
    };

    void Add(const ExportLayer& layer, Part& part, drawing::EntityView entity);

    config::Run& run_;
    const std::vector<ExportLayer>& layers_;
    bool suppressNA_;
    std::string name_;
    std::vector<formats::DbfColumn> columns_;  ///< of attributes
    formats::DbfWriter writer_;
    std::deque<Part> parts_;
    std::vector<std::string> place_;
};

}  // namespace vexlator::exporter

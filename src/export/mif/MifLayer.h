// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "export/ColumnMatch.h"
#include "export/LayerLoop.h"
#include "export/LeftOutEntities.h"
#include "export/mif/MifSettings.h"
#include "formats/mif/MifWriter.h"
#include "platform/OutputSet.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The column type of a template field, widths as the template has them; what it leaves open is as wide as
/// the format allows.
std::string MifColumnType(const drawing::AtpField& field);

/// The MIF/MID pair of one layer while it is written.
class MifLayer {
public:
    MifLayer(config::Run& run, const MifSettings& settings, const ExportLayer& layer,
             std::string_view targetPath, platform::OutputSet& files);

    /// Writes entities; those that are no point, symbol, circle or polyline are left out.
    void Write(const LayerPart& part);
    /// Returns how many objects were written.
    std::uint64_t Finish();

private:
    /// Whether strict readers take the entity's object and row as they are.
    bool IsComplete(drawing::EntityView entity) const;
    /// False for a kind that is left out.
    bool AddObject(drawing::EntityView entity);
    void AddPolyline(drawing::EntityView entity);
    void AddRow(drawing::EntityView entity);
    void Report();

    config::Run& run_;
    const MifSettings& settings_;
    const ExportLayer& layer_;
    std::vector<drawing::AtpField> fields_;
    std::vector<formats::MifColumn> columns_;
    formats::MifWriter writer_;
    ColumnMatch match_;
    LeftOutEntities leftOut_;
    std::uint64_t objects_ = 0, incomplete_ = 0;  ///< the latter are some of the objects
    std::uint64_t replaced_ = 0;                  ///< characters of values
};

}  // namespace vexlator::exporter

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

/// The column type of a template field, with the widths of the template. A missing width is the largest of
/// the format.
std::string MifColumnType(const drawing::AtpField& field);

/// Writes the MIF/MID pair of one layer.
class MifLayer {
public:
    MifLayer(config::Run& run, const MifSettings& settings, const ExportLayer& layer,
             std::string_view targetPath, platform::OutputSet& files);

    /// Writes entities, except those that are no point, symbol, circle or polyline.
    void Write(const LayerPart& part);
    /// Returns the number of objects.
    std::uint64_t Finish();

private:
    /// Whether strict readers accept the entity's object and row unchanged.
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
    std::uint64_t objects_ = 0, incomplete_ = 0;  ///< the latter counts some of the objects
    std::uint64_t replaced_ = 0;                  ///< replaced characters of values
};

}  // namespace vexlator::exporter

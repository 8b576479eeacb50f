// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "export/ColumnMatch.h"
#include "export/LayerLoop.h"
#include "formats/dbf/DbfWriter.h"
#include "platform/OutputSet.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The DBF column of a template field. A field without a width gets the usual width of such columns: 254 for
/// text, 19 with 11 decimals for numbers.
formats::DbfColumn DbfColumnFor(const config::SharedSettings& settings, const drawing::AtpField& field);

/// The attribute table of a layer with the .CPG that names its encoding: Windows-1252 if that holds every
/// value, else UTF-8, so that no character is lost.
class LayerTable {
public:
    /// `basePath` is the path of both files without extension. `further` columns follow those of attributes.
    LayerTable(config::Run& run, const ExportLayer& layer, bool suppressNA, const std::string& basePath,
               platform::OutputSet& files, const std::vector<formats::DbfColumn>& further = {});

    /// Writes one record. An entity without values gives its handle. `further` are the values of the further
    /// columns.
    void Add(drawing::EntityView entity, std::span<const std::string> further = {});
    /// Ends the table, reports changed names and counts the losses of its values.
    void Finish();

private:
    std::string_view Shown(std::string_view value) const;
    void ReportColumns() const;

    config::Run& run_;
    const ExportLayer& layer_;
    bool suppressNA_;
    std::vector<drawing::AtpField> fields_;  ///< of the columns
    formats::DbfWriter writer_;
    ColumnMatch match_;
};

}  // namespace vexlator::exporter

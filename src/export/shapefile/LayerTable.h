// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "formats/dbf/DbfWriter.h"
#include "platform/OutputSet.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::exporter {

/// The DBF column of a template field.
formats::DbfColumn DbfColumnFor(const config::SharedSettings& settings, const drawing::AtpField& field);

/// The attribute table of a layer with the .CPG that names its encoding: Windows-1252 where that holds every
/// value, else UTF-8, so that no character is lost. Values go to columns by position.
class LayerTable {
public:
    /// `basePath` is the path of both files without extension.
    LayerTable(config::Session& session, const ExportLayer& layer, bool suppressNA,
               const std::string& basePath, platform::OutputSet& files);

    /// One record; an entity without values gives its handle. Values that the table has no column for are
    /// counted in the session's losses.
    void Add(drawing::Entity entity);
    /// Ends the table and counts what was cut in the session's losses.
    void Finish();

private:
    std::string_view Shown(std::string_view value) const;
    void CountLost(std::string_view field, std::uint64_t values);

    config::Session& session_;
    const ExportLayer& layer_;
    bool suppressNA_;
    formats::DbfWriter writer_;
};

}  // namespace vexlator::exporter

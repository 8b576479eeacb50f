// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Run.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"
#include "export/LayerLoop.h"
#include "gis/GisFormat.h"

#include <cstddef>
#include <ogr_api.h>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::gis {

/// The column that names the job of a feature where several drawings share a layer. No attribute of a drawing
/// has it.
constexpr std::string_view jobColumn = "VEXLATOR_JOB";

/// The table of a layer: a column for each field of its template, then one for each further attribute that an
/// entity has, so that no value is left out. Attributes go to the column of their name, compared as templates
/// compare names. Columns of numbers become texts when a value is no number.
///
/// First it looks at all entities, then it fills features. In a layer that is there, columns keep their types
/// and widths: a value that does not fit is a loss.
class TargetColumns {
public:
    TargetColumns(config::Run& run, const GisFormat& format, const exporter::ExportLayer& layer,
                  const drawing::Drawing& drawing);

    /// Has a column jobColumn with that value in every feature.
    void NameJob(const std::string& job);
    /// Takes an entity's values into account.
    void Look(const drawing::EntityView& entity);
    /// Settles types and widths, and adds to GDAL's layer the columns that it lacks; `textColumn`: one for
    /// texts too.
    /// @throws platform::WriteError
    void AddTo(OGRLayerH layer, bool textColumn, const std::string& file);
    /// Whether a column has that name, in any letter case.
    bool Has(std::string_view name) const;
    void Fill(OGRFeatureH feature, const drawing::EntityView& entity);
    void FillText(OGRFeatureH feature, std::string_view text);
    /// Adds what was lost, and tells what differs from the template.
    void Report(config::ConversionReport& report) const;

private:
    static constexpr int isMark = -1;  ///< an attribute that joins rings, and has no column

    struct Column {
        std::string name;
        OGRFieldType type = OFTString;
        int width = 0, decimals = 0;
        std::size_t longest = 0;  ///< bytes of its values
        std::string wanted = {};  ///< its name before it was cut or numbered
        std::string text = {};    ///< a value that is no number
        int field = -1;           ///< its number in GDAL's layer
        bool wasThere = false;
        std::uint64_t cut = 0, unfit = 0;
    };
    using Places = std::vector<int>;

    Column ColumnOf(const drawing::AtpField& field) const;
    int AddColumn(Column column);
    const Places& PlacesOf(const drawing::EntityView& entity);
    void Match(const std::vector<std::string>& names, Places& places);
    int FreeColumn(const std::string& name, const std::vector<bool>& taken) const;
    void Create(OGRLayerH layer, Column& column, const std::string& file) const;
    void Set(OGRFeatureH feature, int place, std::string_view value);
    std::string_view Fitting(Column& column, std::string_view value) const;

    config::Run& run_;
    const GisFormat& format_;
    const exporter::ExportLayer& layer_;
    std::vector<Column> columns_;
    std::size_t fromTemplate_ = 0;
    int textColumn_ = isMark, jobColumn_ = isMark;
    std::string job_;
    std::unordered_map<drawing::AttributeSet, Places> places_;
    drawing::AttributeSet lastSet_ = 0;
    const Places* last_ = nullptr;
    std::string value_;
};

}  // namespace vexlator::gis

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/TargetColumns.h"

#include "export/ColumnMatch.h"
#include "export/RingMarks.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "raster/Gdal.h"
#include "util/ShortList.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>

namespace vexlator::gis {

namespace {

constexpr int widestInteger = 9, widestLong = 18;

std::string KeyOf(std::string_view name) {
    return platform::LowerAscii(util::Trim(drawing::AtpNameOf(std::string(name))));
}

bool IsMark(std::string_view name) {
    return name == exporter::surfaceName || name == exporter::holeName ||
           platform::SameNoCase(name, jobColumn);
}

/// The field of that name, -1 for none. Geodatabases give words of their own language an underline.
int FindField(OGRLayerH layer, const GisFormat& format, const std::string& name) {
    OGRFeatureDefnH definition = OGR_L_GetLayerDefn(layer);
    int found = OGR_FD_GetFieldIndex(definition, name.c_str());
    if (found >= 0 || !format.hasPlainNames) return found;
    return OGR_FD_GetFieldIndex(definition, (name + "_").c_str());
}

template <typename Number>
bool Holds(std::string_view value) {
    value = util::Trim(value);
    if (value.starts_with('+')) value.remove_prefix(1);
    Number number{};
    auto [end, error] = std::from_chars(value.data(), value.data() + value.size(), number);
    return error == std::errc() && end == value.data() + value.size();
}

/// The simplest type, from that one on, that holds the value.
OGRFieldType TypeFor(OGRFieldType type, std::string_view value) {
    if (type == OFTInteger && !Holds<std::int32_t>(value)) type = OFTInteger64;
    if (type == OFTInteger64 && !Holds<std::int64_t>(value)) type = OFTReal;
    return type == OFTReal && !Holds<double>(value) ? OFTString : type;
}

}  // namespace

TargetColumns::TargetColumns(config::Run& run, const GisFormat& format, const exporter::ExportLayer& layer,
                             const drawing::Drawing& drawing)
    : run_(run), format_(format), layer_(layer) {
    for (const drawing::AtpField& field : drawing::ReadAtpFields(exporter::TemplateFor(run, layer)))
        if (!IsMark(field.name)) AddColumn(ColumnOf(field));
    fromTemplate_ = columns_.size();
    for (drawing::AttributeSet set : layer.sets) Match(drawing.attributeNames(set), places_[set]);
}

TargetColumns::Column TargetColumns::ColumnOf(const drawing::AtpField& field) const {
    Column column{.name = exporter::ColumnName(field.name, columns_.size()), .width = field.Width()};
    bool isNumber = field.type == 'N' || field.type == 'F';
    if (!isNumber) return column;
    column.decimals = field.Decimals();
    bool isWhole = field.type == 'N' && column.decimals == 0 && column.width > 0;
    column.type = !isWhole || column.width > widestLong ? OFTReal
                  : column.width > widestInteger        ? OFTInteger64
                                                        : OFTInteger;
    return column;
}

bool TargetColumns::Has(std::string_view name) const {
    return std::ranges::any_of(columns_,
                               [&](const Column& column) { return platform::SameNoCase(column.name, name); });
}

/// Names are unique, in any letter case.
int TargetColumns::AddColumn(Column column) {
    column.wanted = column.name;
    column.name = NameIn(format_, column.name);
    std::size_t longest = format_.longestColumnName;
    if (longest > 0) column.name = platform::CutUtf8(column.name, longest);
    std::string base = column.name;
    for (int n = 2; Has(column.name); ++n) {
        std::string number = "_" + std::to_string(n);
        column.name =
            std::string(longest > 0 ? platform::CutUtf8(base, longest - number.size()) : base) + number;
    }
    columns_.push_back(std::move(column));
    return static_cast<int>(columns_.size()) - 1;
}

void TargetColumns::Match(const std::vector<std::string>& names, Places& places) {
    std::vector<bool> taken(columns_.size());
    for (const std::string& name : names) {
        int place = isMark;
        if (!IsMark(name)) {
            place = FreeColumn(name, taken);
            if (place == isMark) place = AddColumn({.name = exporter::ColumnName(name, columns_.size())});
            taken.resize(columns_.size());
            taken[static_cast<std::size_t>(place)] = true;
        }
        places.push_back(place);
    }
}

int TargetColumns::FreeColumn(const std::string& name, const std::vector<bool>& taken) const {
    const std::string key = KeyOf(name);
    const std::string cut(platform::FirstCharacters(key, drawing::importedNameLength));
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (!taken[i] && KeyOf(columns_[i].wanted) == key) return static_cast<int>(i);
    for (std::size_t i = 0; i < fromTemplate_; ++i)
        if (!taken[i] && KeyOf(columns_[i].wanted) == cut) return static_cast<int>(i);
    return isMark;
}

const TargetColumns::Places& TargetColumns::PlacesOf(const drawing::EntityView& entity) {
    drawing::AttributeSet set = entity.attributeSet();
    if (!last_ || set != lastSet_) {
        last_ = &places_[set];
        lastSet_ = set;
    }
    return *last_;
}

void TargetColumns::Look(const drawing::EntityView& entity) {
    drawing::ValueCursor values = entity.xproperties().values();
    for (int place : PlacesOf(entity)) {
        std::string_view value = values.Next();
        if (place == isMark) continue;
        Column& column = columns_[static_cast<std::size_t>(place)];
        column.longest = std::max(column.longest, value.size());
        if (column.type == OFTString || value.empty()) continue;
        column.type = TypeFor(column.type, value);
        if (column.type == OFTString) column.text = value;
    }
}

void TargetColumns::NameJob(const std::string& job) {
    job_ = job;
    jobColumn_ = AddColumn({.name = std::string(jobColumn)});
}

void TargetColumns::AddTo(OGRLayerH layer, bool textColumn, const std::string& file) {
    if (textColumn && !format_.hasStyles) textColumn_ = AddColumn({.name = "TEXT"});
    for (Column& column : columns_) {
        while (platform::SameNoCase(column.name, OGR_L_GetFIDColumn(layer)) ||
               platform::SameNoCase(column.name, OGR_L_GetGeometryColumn(layer)))
            column.name += '_';
        column.field = FindField(layer, format_, column.name);
        column.wasThere = column.field >= 0;
        if (!column.wasThere) {
            Create(layer, column, file);
            continue;
        }
        OGRFieldDefnH field = OGR_FD_GetFieldDefn(OGR_L_GetLayerDefn(layer), column.field);
        column.type = OGR_Fld_GetType(field);
        column.width = OGR_Fld_GetWidth(field);
        column.text.clear();
    }
}

void TargetColumns::Create(OGRLayerH layer, Column& column, const std::string& file) const {
    OGRFieldDefnH field = OGR_Fld_Create(column.name.c_str(), column.type);
    if (format_.longestText > 0 && column.type == OFTString) {
        std::size_t wanted =
            std::max<std::size_t>({column.longest, 1, static_cast<std::size_t>(column.width)});
        column.width = static_cast<int>(std::min(wanted, format_.longestText));
        OGR_Fld_SetWidth(field, column.width);
    }
    bool ok = OGR_L_CreateField(layer, field, 1) == OGRERR_NONE;
    OGR_Fld_Destroy(field);
    if (!ok) throw platform::WriteError(file, raster::TakeReason());
    column.field = OGR_FD_GetFieldCount(OGR_L_GetLayerDefn(layer)) - 1;
}

void TargetColumns::Fill(OGRFeatureH feature, const drawing::EntityView& entity) {
    for (const Column& column : columns_) OGR_F_SetFieldNull(feature, column.field);
    if (jobColumn_ != isMark) Set(feature, jobColumn_, job_);
    drawing::ValueCursor values = entity.xproperties().values();
    for (int place : PlacesOf(entity)) {
        std::string_view value = values.Next();
        if (place != isMark && !value.empty()) Set(feature, place, value);
    }
}

void TargetColumns::Set(OGRFeatureH feature, int place, std::string_view value) {
    Column& column = columns_[static_cast<std::size_t>(place)];
    bool isNumber = column.type == OFTInteger || column.type == OFTInteger64 || column.type == OFTReal;
    if (column.wasThere && isNumber && TypeFor(column.type, value) != column.type) {
        ++column.unfit;
        return;
    }
    value_ = column.type == OFTString ? Fitting(column, value) : util::Trim(value);
    OGR_F_SetFieldString(feature, column.field, value_.c_str());
    if (column.type != OFTString && !OGR_F_IsFieldSetAndNotNull(feature, column.field)) ++column.unfit;
}

/// What of a text the column takes.
std::string_view TargetColumns::Fitting(Column& column, std::string_view value) const {
    std::string_view fitting = value;
    if (format_.longestText > 0 && value.size() > format_.longestText)
        fitting = platform::CutUtf8(value, format_.longestText);
    if (column.wasThere && column.width > 0)
        fitting = platform::FirstCharacters(fitting, static_cast<std::size_t>(column.width));
    if (fitting.size() < value.size()) ++column.cut;
    return fitting;
}

void TargetColumns::FillText(OGRFeatureH feature, std::string_view text) {
    if (textColumn_ != isMark && !text.empty()) Set(feature, textColumn_, text);
}

void TargetColumns::Report(config::ConversionReport& report) const {
    util::ShortList renamed = exporter::OtherNames(), texts = exporter::OtherNames();
    for (const Column& column : columns_) {
        report.Lose(config::LossReport::Kind::Cut, layer_.layer.name, column.name, column.cut);
        report.Lose(config::LossReport::Kind::NotNumber, layer_.layer.name, column.name, column.unfit);
        if (column.wanted != column.name)
            renamed.Add(exporter::ShownName(column.wanted) + " -> " + column.name);
        if (!column.text.empty())
            texts.Add(column.name + " (" + util::ShortList::Shortened(column.text) + ")");
    }
    std::string layer = util::ShortList::Shortened(layer_.layer.name);
    if (!renamed.Empty()) run_.Ui().Report(layer + ": names of columns changed: " + renamed.Text());
    if (!texts.Empty())
        run_.Ui().Report(layer + ": columns that are texts, because a value is no number: " + texts.Text());
}

}  // namespace vexlator::gis

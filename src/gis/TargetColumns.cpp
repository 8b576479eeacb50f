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
    return name == exporter::surfaceName || name == exporter::holeName;
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

void TargetColumns::AddTo(OGRLayerH layer, bool textColumn, const std::string& file) {
    if (textColumn && !format_.hasStyles) textColumn_ = AddColumn({.name = "TEXT"});
    for (Column& column : columns_) {
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
    }
}

void TargetColumns::Fill(OGRFeatureH feature, const drawing::EntityView& entity) {
    for (int i = 0; i < static_cast<int>(columns_.size()); ++i) OGR_F_SetFieldNull(feature, i);
    drawing::ValueCursor values = entity.xproperties().values();
    for (int place : PlacesOf(entity)) {
        std::string_view value = values.Next();
        if (place != isMark && !value.empty()) Set(feature, place, value);
    }
}

void TargetColumns::Set(OGRFeatureH feature, int place, std::string_view value) {
    Column& column = columns_[static_cast<std::size_t>(place)];
    if (format_.longestText > 0 && column.type == OFTString && value.size() > format_.longestText) {
        value = platform::CutUtf8(value, format_.longestText);
        ++column.cut;
    }
    value_ = column.type == OFTString ? value : util::Trim(value);
    OGR_F_SetFieldString(feature, place, value_.c_str());
}

void TargetColumns::FillText(OGRFeatureH feature, std::string_view text) {
    if (textColumn_ != isMark && !text.empty()) Set(feature, textColumn_, text);
}

void TargetColumns::Report(config::ConversionReport& report) const {
    util::ShortList renamed = exporter::OtherNames(), texts = exporter::OtherNames();
    for (const Column& column : columns_) {
        report.Lose(config::LossReport::Kind::Cut, layer_.layer.name, column.name, column.cut);
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

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/SourceAttributes.h"

#include "export/RingMarks.h"
#include "gis/TargetColumns.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Numbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace vexlator::gis {

namespace {

/// Values of 32 bits in their own shortest form: 0.1, not 0.10000000149011612.
std::string ShortestFloat(float value) {
    char text[util::longestShortest];
    char* end = std::to_chars(text, text + sizeof text, value).ptr;
    return std::string(text, end);
}

/// 2026-03-15T10:00:00.5+01:00, as far as the field has it.
std::string DateText(OGRFeatureH feature, int field, OGRFieldType type) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, zone = 0;
    float second = 0;
    OGR_F_GetFieldAsDateTimeEx(feature, field, &year, &month, &day, &hour, &minute, &second, &zone);
    auto two = [](int value) { return util::ZeroPadded(value, 2); };
    std::string date = util::ZeroPadded(year, 4) + "-" + two(month) + "-" + two(day);
    if (type == OFTDate) return date;
    std::string seconds = ShortestFloat(second);
    std::string time = two(hour) + ":" + two(minute) + ":" + (second < 10 ? "0" : "") + seconds;
    if (type == OFTTime) return time;
    constexpr int utc = 100;  // further steps are quarters of an hour
    int minutes = (zone - utc) * 15;
    std::string offset = zone == utc ? "Z"
                         : zone < 2  ? ""
                                     : (minutes < 0 ? "-" : "+") + two(std::abs(minutes) / 60) + ":" +
                                          two(std::abs(minutes) % 60);
    return date + "T" + time + offset;
}

/// "(2:a,b)" is a list of two.
std::string ListText(std::string_view text) {
    std::size_t begin = text.find(':') + 1;
    if (text.ends_with(')')) text.remove_suffix(1);
    return platform::AsUtf8(text.substr(std::min(begin, text.size())));
}

}  // namespace

SourceAttributes::SourceAttributes(OGRFeatureDefnH definition, drawing::Drawing& drawing)
    : definition_(definition) {
    for (int i = 0; i < OGR_FD_GetFieldCount(definition); ++i) {
        OGRFieldDefnH field = OGR_FD_GetFieldDefn(definition, i);
        if (platform::SameNoCase(OGR_Fld_GetNameRef(field), jobColumn)) continue;
        fields_.push_back(i);
        names_.push_back(platform::AsUtf8(OGR_Fld_GetNameRef(field)));
        types_.push_back(OGR_Fld_GetType(field));
    }
    values_.resize(names_.size());
    sets_[0] = drawing.attributeSet(names_);
}

std::vector<int> SourceAttributes::Widths() const {
    constexpr int widest = 99, usual = 32;
    std::vector<int> widths;
    for (int field : fields_) {
        int width = OGR_Fld_GetWidth(OGR_FD_GetFieldDefn(definition_, field));
        widths.push_back(width > 0 ? std::min(width, widest) : usual);
    }
    return widths;
}

std::size_t SourceAttributes::Read(OGRFeatureH feature) {
    std::size_t bytes = 0;
    for (std::size_t place = 0; place < values_.size(); ++place) {
        const int i = fields_[place];
        std::string& value = values_[place];
        value.clear();
        if (!OGR_F_IsFieldSetAndNotNull(feature, i)) continue;
        switch (types_[place]) {
            case OFTReal:
                value = OGR_Fld_GetSubType(OGR_FD_GetFieldDefn(definition_, i)) == OFSTFloat32
                            ? ShortestFloat(static_cast<float>(OGR_F_GetFieldAsDouble(feature, i)))
                            : util::FormatShortest(OGR_F_GetFieldAsDouble(feature, i));
                break;
            case OFTDate:
            case OFTTime:
            case OFTDateTime:
                value = DateText(feature, i, types_[place]);
                break;
            case OFTIntegerList:
            case OFTInteger64List:
            case OFTRealList:
            case OFTStringList:
                value = ListText(OGR_F_GetFieldAsString(feature, i));
                break;
            default:
                value = platform::AsUtf8(OGR_F_GetFieldAsString(feature, i));
        }
        bytes += value.size() + 1;
    }
    return bytes;
}

void SourceAttributes::AddTo(drawing::Drawing& drawing, std::uint64_t surface, bool isHole) {
    if (names_.empty() && surface == 0 && !isHole) return;
    drawing.beginValues(SetFor(drawing, surface > 0, isHole));
    for (const std::string& value : values_) drawing.appendValue(value);
    if (surface > 0) drawing.appendValue(std::to_string(surface));
    if (isHole) drawing.appendValue("1");
}

drawing::AttributeSet SourceAttributes::SetFor(drawing::Drawing& drawing, bool isNumbered, bool isHole) {
    std::optional<drawing::AttributeSet>& set = sets_[(isNumbered ? 1U : 0U) + (isHole ? 2U : 0U)];
    if (!set) {
        std::vector<std::string> names = names_;
        if (isNumbered) names.emplace_back(exporter::surfaceName);
        if (isHole) names.emplace_back(exporter::holeName);
        set = drawing.attributeSet(names);
    }
    return *set;
}

}  // namespace vexlator::gis

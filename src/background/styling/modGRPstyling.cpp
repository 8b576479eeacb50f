// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/modGRPstyling.h"

#include "config/Ini.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <algorithm>
#include <initializer_list>
#include <stdexcept>
#include <utility>

namespace vexlator::background {

namespace {

constexpr std::string_view layersSection = "LAYERS", optimisedSection = "MOBILEATTRIBS",
                           annotationSection = "ANNOTATIONS", layerOnSection = "LAYERON",
                           searchOnSection = "SEARCHON", fixedHeightSection = "FIXEDANNO";
constexpr std::string_view fieldKey = "FIELD", heightKey = "HGT";

// --- Reading

/// Items are the values of the keys 1, 2, ... up to the first missing one.
template <typename Item>
std::vector<Item> ReadList(const config::IniText& ini, std::string_view section,
                           Item (*itemOf)(std::string_view value)) {
    std::vector<Item> items;
    for (std::size_t key = 1;; ++key) {
        std::string_view value = ini.Value(section, std::to_string(key));
        if (value.empty()) return items;
        items.push_back(itemOf(value));
    }
}

std::string TakeField(std::string_view& fields) {
    std::size_t end = std::min(fields.find(','), fields.size());
    std::string field(fields.substr(0, end));
    fields.remove_prefix(std::min(end + 1, fields.size()));
    return field;
}

StyleRow RowOf(std::string_view value) {
    StyleRow row;
    for (std::string* cell :
         {&row.layer, &row.points, &row.lines, &row.areas, &row.thick, &row.zoom, &row.hide})
        *cell = TakeField(value);
    return row;
}

ListedName ListedNameOf(std::string_view value) {
    ListedName item{TakeField(value)};
    item.selected = platform::SameNoCase(TakeField(value), "True");
    return item;
}

std::vector<StyleRow> RowsOf(const config::IniText& ini, bool addDefault) {
    std::vector<StyleRow> rows = ReadList(ini, layersSection, RowOf);
    bool hasDefault = std::any_of(rows.begin(), rows.end(), [](const StyleRow& row) {
        return platform::SameNoCase(row.layer, defaultRowName);
    });
    if (addDefault && !hasDefault) rows.push_back(DefaultRow());
    return rows;
}

// --- Writing

/// Joins fields to a value that reads back the same.
std::string Joined(std::initializer_list<std::string_view> fields) {
    std::string value;
    for (std::string_view field : fields) {
        if (!CanStandInStyle(field))
            throw std::invalid_argument("\"" + std::string(platform::FirstCharacters(field, 100)) +
                                        "\" has a comma or a line end, which a style file cannot hold");
        value.append(field).append(",");
    }
    value.pop_back();
    if (platform::CountCharacters(value) > config::longestIniValue)
        throw std::invalid_argument("\"" + std::string(platform::FirstCharacters(value, 100)) +
                                    "...\" is longer than a line of a style file can be");
    return value;
}

std::string ValueOf(const StyleRow& row) {
    return Joined({row.layer, row.points, row.lines, row.areas, row.thick, row.zoom, row.hide});
}

std::string ValueOf(const ListedName& item) {
    return Joined({item.name, item.selected ? "True" : "False"});
}

template <typename Item>
void AppendList(std::string& text, std::string_view section, const std::vector<Item>& items) {
    config::AppendIniSection(text, section);
    for (std::size_t i = 0; i < items.size(); ++i)
        config::AppendIniValue(text, std::to_string(i + 1), ValueOf(items[i]));
}

void AppendOne(std::string& text, std::string_view section, std::string_view key, std::string_view value) {
    config::AppendIniSection(text, section);
    config::AppendIniValue(text, key, value);
}

std::string TextOf(const BackgroundStyle& style) {
    std::string text;
    AppendList(text, layersSection, style.rows);
    AppendList(text, optimisedSection, style.optimisedAttributes);
    AppendList(text, annotationSection, style.annotationFields);
    AppendOne(text, layerOnSection, fieldKey, style.layerOnField);
    AppendOne(text, searchOnSection, fieldKey,
              style.searchOnField == noSearchField ? "" : style.searchOnField);
    AppendOne(text, fixedHeightSection, heightKey, style.fixedAnnotationHeight);
    return text;
}

/// Changes a part of a file, which is created if missing.
template <typename Part>
void SavePart(std::string_view file, Part BackgroundStyle::*part, Part content) {
    BackgroundStyle style = LoadBackgroundStyle(file, false);
    style.*part = std::move(content);
    SaveBackgroundStyle(file, std::move(style), false);
}

}  // namespace

void UseOneColour(std::vector<StyleRow>& rows) {
    for (StyleRow& row : rows) row.lines = row.areas = row.points;
}

bool CanStandInStyle(std::string_view name) {
    return name.find_first_of(std::string_view(",\r\n\0", 4)) == std::string_view::npos;
}

bool IsFlagOn(std::string_view flag) {
    return util::NumberOf(flag) == -1;
}

StyleRow DefaultRow() {
    return {std::string(defaultRowName), "Blue", "Blue", "Blue", "0", "-1", "0"};
}

std::optional<double> BackgroundStyle::FixedAnnotationHeight() const {
    if (fixedAnnotationHeight.empty()) return std::nullopt;
    return util::NumberOf(fixedAnnotationHeight);
}

std::string ReadStyleText(std::string_view file) {
    if (!platform::FileExists(file)) return "";
    platform::MappedFile mapped(file);
    if (mapped.Bytes().size() > largestStyleFile)
        throw platform::ReadError(mapped.Name(), "",
                                  "is larger than 16 MB, the most that a style file may have");
    return std::string(mapped.Text());
}

BackgroundStyle LoadBackgroundStyle(std::string_view file, bool addDefault) {
    if (!platform::FileExists(file)) return {};
    const config::IniText ini(ReadStyleText(file));
    BackgroundStyle style;
    if (!platform::SameNoCase(util::ExtensionOf(file), "TXT")) style.rows = RowsOf(ini, addDefault);
    style.optimisedAttributes = ReadList(ini, optimisedSection, ListedNameOf);
    style.annotationFields = ReadList(ini, annotationSection, ListedNameOf);
    style.layerOnField = ini.Value(layerOnSection, fieldKey);
    style.searchOnField = ini.Value(searchOnSection, fieldKey);
    style.fixedAnnotationHeight = ini.Value(fixedHeightSection, heightKey);
    return style;
}

void SaveBackgroundStyle(std::string_view file, BackgroundStyle style, bool simple) {
    if (simple) UseOneColour(style.rows);
    std::string text;
    try {
        text = TextOf(style);
    } catch (const std::invalid_argument& error) {
        throw platform::WriteError(platform::NativePath(file), error.what());
    }
    platform::ReplaceFile(file, text);
}

std::vector<StyleRow> LoadStyleRows(std::string_view file, bool addDefault) {
    return LoadBackgroundStyle(file, addDefault).rows;
}

void SaveStyleRows(std::string_view file, std::vector<StyleRow> rows, bool simple) {
    if (simple) UseOneColour(rows);
    SavePart(file, &BackgroundStyle::rows, std::move(rows));
}

std::vector<ListedName> LoadOptimisedAttributes(std::string_view file) {
    return LoadBackgroundStyle(file).optimisedAttributes;
}

void SaveOptimisedAttributes(std::string_view file, std::vector<ListedName> attributes) {
    SavePart(file, &BackgroundStyle::optimisedAttributes, std::move(attributes));
}

std::vector<ListedName> LoadAnnotationFields(std::string_view file) {
    return LoadBackgroundStyle(file).annotationFields;
}

void SaveAnnotationFields(std::string_view file, std::vector<ListedName> fields) {
    SavePart(file, &BackgroundStyle::annotationFields, std::move(fields));
}

}  // namespace vexlator::background

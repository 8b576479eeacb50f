// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/FieldMapping.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Text.h"

#include <optional>
#include <utility>
#include <vector>

namespace vexlator::drawing {

namespace {

constexpr std::string_view changeSection = "INOUTFEATCHANGE";
constexpr std::size_t longestCode = 3;
constexpr std::size_t mostBytesPerCharacter = 4;

using Renaming = std::pair<std::string, std::string>;

std::vector<Renaming> ParseRenamings(std::string_view list) {
    std::vector<Renaming> renamings;
    for (std::size_t i = 0, count = util::CountOf(list, ",") + 1; i < count; ++i) {
        std::string_view pair = util::GetCommaField(i, list);
        if (!pair.empty()) renamings.emplace_back(util::GetBarField(0, pair), util::GetBarField(1, pair));
    }
    return renamings;
}

std::optional<XProperty> FindNoCase(const XProperties& properties, std::string_view name) {
    for (std::size_t i = 0, count = properties.count(); i < count; ++i)
        if (platform::SameNoCase(properties.name(i), name)) return properties.item(i);
    return std::nullopt;
}

void ChangeFeature(config::Run& run, Drawing& drawing, const std::string& code, std::string_view configFile) {
    std::string newCode = run.ReadIni(changeSection, code, configFile);
    if (newCode.empty()) return;
    auto renamings = ParseRenamings(run.ReadIni(changeSection, code + "_Fields", configFile));
    SelectionSet entities = drawing.selectLayer(code);
    if (entities.count() == 0) return;
    FindOrAddLayer(drawing, newCode);
    for (std::size_t i = 0; i < entities.count(); ++i) {
        Entity entity = entities.item(i);
        entity.setLayerName(newCode);
        for (const auto& [oldName, newName] : renamings) RenameAttribute(run, entity, oldName, newName);
    }
}

}  // namespace

std::string_view MappedFieldName(const config::SharedSettings& settings, const AtpField& field) {
    return settings.ReProcessFieldNames && !field.shortName.empty() ? field.shortName : field.name;
}

std::string_view ShortenValue(const config::SharedSettings& settings, std::string_view value) {
    const std::string& separator = settings.SHORTENFIELDSON;
    if (separator.empty()) return value;
    // A separator beyond the longest code leaves the value whole, so the search ends there.
    std::size_t position =
        value.substr(0, longestCode * mostBytesPerCharacter + separator.size()).find(separator);
    if (position == std::string_view::npos || position == 0) return value;
    std::string_view code = value.substr(0, position);
    std::size_t after = position + 1;
    while (after < value.size() && platform::ContinuesCharacter(value[after])) ++after;
    if (after >= value.size() || code.back() == ' ' || value[after] == ' ') return value;
    return platform::CountCharacters(code) <= longestCode ? code : value;
}

void ApplyFeatureChanges(config::Run& run, Drawing& drawing, std::string_view configFile) {
    std::vector<std::string> codes;
    for (const Layer& layer : drawing.layers())
        if (!layer.frozen && layer.name != "0") codes.push_back(layer.name);
    for (const std::string& code : codes) ChangeFeature(run, drawing, code, configFile);
}

Layer& FindOrAddLayer(Drawing& drawing, std::string_view name) {
    Layer& layer = drawing.addLayer(name);
    drawing.setActiveLayer(name);
    return layer;
}

void RenameAttribute(config::Run& run, Entity entity, std::string_view oldName, std::string_view newName) {
    std::optional<XProperty> found = FindNoCase(entity.xproperties(), oldName);
    if (!found) return run.Ui().ShowMessage(std::string(oldName) + " Not found to replace");
    std::string value(found->value());
    found->setName(newName);
    if (util::InStrNoCase(newName, "Date") > 0) found->setValue(SlashDateFromCompact(value));
}

std::string SlashDateFromCompact(std::string_view text) {
    constexpr std::string_view allowed = "0123456789-.";
    if (text.size() != 8 || text.find_first_not_of(allowed) != std::string_view::npos)
        return std::string(text);
    std::string result(text.substr(6, 2));
    return result.append("/").append(text.substr(4, 2)).append("/").append(text.substr(0, 4));
}

config::KeyList FeatureChangeKeys() {
    return {
        {changeSection, "",
         "new name of a feature code in exports. The key is the code. The key CODE_Fields renames its fields",
         "nothing is renamed"},
    };
}

}  // namespace vexlator::drawing

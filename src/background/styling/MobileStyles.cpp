// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/styling/MobileStyles.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Files.h"
#include "util/Text.h"

namespace vexlator::background {

namespace {

bool StartsWithName(std::string_view line, std::string_view name) {
    return line.size() > name.size() && line[name.size()] == '=' &&
           platform::SameNoCase(line.substr(0, name.size()), name);
}

}  // namespace

std::optional<std::uint8_t> ColourCode(std::string_view name) {
    for (const NamedColour& colour : styleColours)
        if (platform::SameNoCase(name, colour.name)) return colour.code;
    return std::nullopt;
}

MobileStyles::MobileStyles(std::string_view text) : text_(platform::DecodeText(text)) {
    for (util::LineReader lines(text_); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        std::size_t equals = line.find('=');
        if (equals != std::string_view::npos)
            numbers_.try_emplace(line.substr(0, equals), static_cast<std::uint32_t>(lines_.size()));
        lines_.push_back(line);
    }
}

std::uint32_t MobileStyles::NumberOf(std::string_view name) const {
    if (name.find('=') == std::string_view::npos) {
        auto found = numbers_.find(name);
        return found == numbers_.end() ? 0 : found->second;
    }
    // Such a name ends at a later "=" of its line. Nobody uses such names, and the table does not support
    // them.
    for (std::size_t i = 0; i < lines_.size(); ++i)
        if (StartsWithName(lines_[i], name)) return static_cast<std::uint32_t>(i);
    return 0;
}

std::vector<std::string_view> MobileStyles::NamesOf(std::string_view type) const {
    std::vector<std::string_view> names;
    for (std::string_view line : lines_) {
        std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        if (type.empty() || util::GetCommaField(0, line.substr(equals + 1)) == type)
            names.push_back(line.substr(0, equals));
    }
    return names;
}

std::string_view MobileStyles::FieldsOf(std::uint32_t number) const {
    if (number >= lines_.size()) return "";
    std::size_t equals = lines_[number].find('=');
    return equals == std::string_view::npos ? "" : lines_[number].substr(equals + 1);
}

std::string MobileStyles::ListFor(std::string_view type) const {
    std::string list;
    for (const NamedColour& colour : styleColours) list.append(list.empty() ? "" : "|").append(colour.name);
    if (!lines_.empty()) list += "|--------------------------";
    for (std::string_view name : NamesOf(type)) list.append("|").append(name);
    return list += "|<Select Mobile StyleFile>";
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/classification/Classifier.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <span>
#include <utility>

namespace vexlator::background {

namespace {

// The code of a text is its index in the table.

constexpr std::string_view themeTexts[] = {"administrative boundaries",
                                           "terrain and height",
                                           "land",
                                           "buildings",
                                           "roads tracks and paths",
                                           "water",
                                           "structures",
                                           "road network",
                                           "heritage and antiquities"};

constexpr std::string_view makeTexts[] = {"manmade", "natural", "multiple", "unknown"};

constexpr std::string_view groupTexts[] = {"political or administrative",
                                           "terrain and height",
                                           "landform",
                                           "height control",
                                           "building",
                                           "general feature",
                                           "network or polygon closing geometry",
                                           "general surface",
                                           "road or track",
                                           "inland water",
                                           "structure",
                                           "roadside",
                                           "natural environment",
                                           "glasshouse",
                                           "provisional or unverified",
                                           "rail",
                                           "path",
                                           "buildings or structure",
                                           "historic interest",
                                           "unclassified",
                                           "built environment",
                                           "tidal water",
                                           "road topology",
                                           "motorway",
                                           "a road",
                                           "minor road",
                                           "local street",
                                           "private road - publicly accessible",
                                           "private road - restricted access",
                                           "b road",
                                           "alley",
                                           "pedestrianised street"};

util::NoCaseMap<std::uint8_t> CodesOf(std::span<const std::string_view> texts) {
    util::NoCaseMap<std::uint8_t> codes;
    for (std::string_view text : texts) codes.emplace(text, static_cast<std::uint8_t>(codes.size()));
    return codes;
}

std::uint8_t CodeOf(const util::NoCaseMap<std::uint8_t>& codes, std::string_view text,
                    std::uint8_t otherwise) {
    auto found = codes.find(text);
    return found == codes.end() ? otherwise : found->second;
}

/// Removes up to eight characters from the end of a text.
std::string_view TakeLastEight(std::string_view& text) {
    std::size_t begin = text.size();
    for (int characters = 0; begin > 0 && characters < 8; --begin)
        if (!platform::ContinuesCharacter(text[begin - 1])) ++characters;
    std::string_view taken = text.substr(begin);
    text.remove_suffix(taken.size());
    return taken;
}

/// Leading zeros would not change the number, so a short half is not padded.
std::int32_t LeadingDigits(std::string_view half) {
    std::int32_t number = 0;
    for (char c : half) {
        if (c < '0' || c > '9') break;
        number = number * 10 + (c - '0');
    }
    return number;
}

void SplitToid(std::string_view value, FeatureHeader& header) {
    header.keyLow = LeadingDigits(TakeLastEight(value));
    header.keyHigh = LeadingDigits(TakeLastEight(value));
}

/// "" if it cannot be read: then there are no entries.
std::string TextOfFile(std::string_view file) {
    try {
        return platform::ReadWholeFile(file);
    } catch (const platform::ReadError&) {
        return "";
    }
}

}  // namespace

bool IsClassifiedDrawing(const drawing::Entity& firstEntity) {
    drawing::XProperties attributes = firstEntity.xproperties();
    auto has = [&](std::string_view name) {
        for (std::size_t i = 0; i < attributes.count(); ++i)
            if (platform::SameNoCase(attributes.name(i), name)) return true;
        return false;
    };
    return has("TOID") && has("MAKE") && (has("THEME") || has("THEMES"));
}

Classifier::Classifier(const config::Run& run)
    : featureCodeFile_(util::JoinPath(run.Settings().ProgramFolder, "NImastermap.ini")),
      themes_(CodesOf(themeTexts)),
      makes_(CodesOf(makeTexts)),
      groups_(CodesOf(groupTexts)) {}

Classifier::Role Classifier::RoleOf(std::string_view attributeName) {
    static constexpr std::pair<std::string_view, Role> roles[] = {
        {"THEME", Role::Theme},
        {"THEMES", Role::Theme},
        {"MAKE", Role::Make},
        {"DESCGROUP", Role::Group},
        {"DESCRIPTIVEGROUP", Role::Group},
        {"DESCRIPTIVEGROUPS", Role::Group},
        {"DESCRIPTIVE_GROUPS", Role::Group},
        {"TOID", Role::Toid},
        {"FEATURE_ID", Role::FeatureId},
        {"FEAT_CODE", Role::FeatureCode},
    };
    for (const auto& [name, role] : roles)
        if (platform::SameNoCase(attributeName, name)) return role;
    return Role::None;
}

std::vector<Classifier::Role> Classifier::RolesOf(const drawing::XProperties& attributes) {
    std::vector<Role> roles;
    for (std::size_t i = 0; i < attributes.count(); ++i) {
        Role role = RoleOf(attributes.name(i));
        if (role == Role::None) continue;
        roles.resize(i, Role::None);
        roles.push_back(role);
    }
    return roles;
}

bool Classifier::ClassifyEntity(const drawing::Entity& entity, FeatureHeader& header) {
    header = {};
    bool classified = false;
    const std::vector<Role>& roles = roles_.Of(entity, RolesOf);
    if (roles.empty()) return false;
    drawing::ValueCursor values = entity.xproperties().values();
    for (Role role : roles) classified |= Apply(role, values.Next(), header);
    return classified;
}

bool Classifier::Apply(Role role, std::string_view value, FeatureHeader& header) {
    const FeatureHeader unknown;
    switch (role) {
        case Role::None:
            return false;
        case Role::Theme:
            header.classA = CodeOf(themes_, value, unknown.classA);
            return true;
        case Role::Group:
            header.classB = CodeOf(groups_, value, unknown.classB);
            return true;
        case Role::Make:
            header.classC = CodeOf(makes_, value, unknown.classC);
            return true;
        case Role::Toid:
            SplitToid(value, header);
            return true;
        case Role::FeatureId:
            SplitToid(value, header);
            return false;
        case Role::FeatureCode:
            return ApplyFeatureCode(value, header);
    }
    return false;
}

bool Classifier::ApplyFeatureCode(std::string_view code, FeatureHeader& header) {
    std::optional<FeatureTexts> texts = LookupFeatureCode(code);
    if (!texts) return false;
    Apply(Role::Theme, texts->theme, header);
    Apply(Role::Make, texts->make, header);
    Apply(Role::Group, texts->group, header);
    return true;
}

std::optional<FeatureTexts> Classifier::LookupFeatureCode(std::string_view code) {
    if (!featureCodes_) featureCodes_.emplace(TextOfFile(featureCodeFile_));
    std::string_view entry = featureCodes_->Value("NIFEATURES", code);
    if (entry.empty()) return std::nullopt;
    return FeatureTexts{util::GetCommaField(1, entry), util::GetCommaField(2, entry),
                        util::GetCommaField(3, entry)};
}

}  // namespace vexlator::background

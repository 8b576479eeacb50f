// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/PerAttributeSet.h"
#include "background/package/FeatureHeader.h"
#include "config/Ini.h"
#include "config/Run.h"
#include "drawing/Drawing.h"
#include "util/NoCaseMap.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Features of national large-scale topographic data carry an identifier of 16 digits (TOID) and three texts:
/// theme, make (man-made or natural) and descriptive group. The device draws them by these.
namespace vexlator::background {

/// What NImastermap.ini says of a feature code. Good as long as the Classifier it comes from.
struct FeatureTexts {
    std::string_view theme, make, group;
    bool operator==(const FeatureTexts&) const = default;
};

/// Whether a drawing holds classified features, as its first entity tells: one that has TOID, MAKE, and THEME
/// or THEMES among its attributes, names in any letter case.
bool IsClassifiedDrawing(const drawing::Entity& firstEntity);

/// Turns the attributes of entities into the codes of element headers. One Classifier serves the entities of
/// one drawing, at the cost of a hash look-up for each attribute that means something.
class Classifier {
public:
    /// NImastermap.ini is looked for in the session's program folder, when the first feature code needs it.
    explicit Classifier(const config::Run& run);

    /// Fills the whole header: first with what it holds when nothing is known, then from one attribute after
    /// the other; later ones win, and a text that is in no table gives the value of nothing known. True when
    /// an attribute was found that makes the entity a classified one; FEATURE_ID alone, and a FEAT_CODE
    /// without entry, do not.
    bool ClassifyEntity(const drawing::Entity& entity, FeatureHeader& header);

    /// The entry of a feature code in section [NIFEATURES] of NImastermap.ini, which is read once. None
    /// without file, section, key or value.
    std::optional<FeatureTexts> LookupFeatureCode(std::string_view code);

private:
    enum class Role : std::uint8_t { None, Theme, Make, Group, Toid, FeatureId, FeatureCode };
    using Codes = util::NoCaseMap<std::uint8_t>;

    static Role RoleOf(std::string_view attributeName);
    static std::vector<Role> RolesOf(const drawing::XProperties& attributes);
    bool Apply(Role role, std::string_view value, FeatureHeader& header);
    bool ApplyFeatureCode(std::string_view code, FeatureHeader& header);

    std::string featureCodeFile_;
    std::optional<config::IniText> featureCodes_;
    Codes themes_, makes_, groups_;
    PerAttributeSet<std::vector<Role>> roles_;  ///< by position, as far as the last that means something
};

}  // namespace vexlator::background

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
/// theme, make (man-made or natural) and descriptive group. They decide how the device draws them.
namespace vexlator::background {

/// The values in NImastermap.ini for a feature code. Valid as long as their Classifier.
struct FeatureTexts {
    std::string_view theme, make, group;
    bool operator==(const FeatureTexts&) const = default;
};

/// Whether a drawing holds classified features, by its first entity: it has the attributes TOID, MAKE, and
/// THEME or THEMES, names in any letter case.
bool IsClassifiedDrawing(const drawing::Entity& firstEntity);

/// Converts the attributes of entities to the codes of element headers. One Classifier is for the entities of
/// one drawing. It costs one hash look-up for each attribute with a meaning.
class Classifier {
public:
    /// NImastermap.ini is searched for in the program folder, when the first feature code needs it.
    explicit Classifier(const config::Run& run);

    /// Fills the whole header: first with the values for unknown features, then from one attribute after the
    /// other. Later attributes win. A text in no table gives the value for unknown. True if an attribute made
    /// the entity a classified one; FEATURE_ID alone, and a FEAT_CODE without an entry, do not.
    bool ClassifyEntity(const drawing::Entity& entity, FeatureHeader& header);

    /// The entry of a feature code in section [NIFEATURES] of NImastermap.ini, which is read once. None
    /// without the file, section, key or value.
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
    PerAttributeSet<std::vector<Role>> roles_;  ///< by position, up to the last one with a meaning
};

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"

#include <string>
#include <string_view>

/// Rules that bridge the names and values of the field device and those that a GIS wants.
namespace vexlator::drawing {

/// The name of a template field in a GIS table: its short name when ReProcessFieldNames is on and it has one,
/// else the device's name. A field for which this is "NULL" gets no column; read the fields with
/// NullFields::Keep, because only this rule tells which of the two names counts.
std::string_view MappedFieldName(const config::SharedSettings& settings, const AtpField& field);

/// A value made of a code of one to three characters, the separator SHORTENFIELDSON and a description is cut
/// to the code ("AB-Tarmac" to "AB"), unless a blank stands beside the separator. A part of `value`.
std::string_view ShortenValue(const config::SharedSettings& settings, std::string_view value);

/// Moves the entities of feature codes to other codes and renames their attributes, as section
/// INOUTFEATCHANGE of the configuration file asks (CODE = new code, CODE_Fields = old|new,old|new); "" means
/// gv.ini. Frozen layers and layer "0" stay as they are. Each layer that was there before is changed once. In
/// memory only.
void ApplyFeatureChanges(config::Run& run, Drawing& drawing, std::string_view configFile);

/// The layer of that name, added when missing; it becomes the active one.
Layer& FindOrAddLayer(Drawing& drawing, std::string_view name);

/// Renames the entity's first attribute of that name, letter case ignored; a message tells when there is
/// none. When the new name holds "Date", a compact date in the value is written with slashes.
void RenameAttribute(config::Run& run, Entity entity, std::string_view oldName, std::string_view newName);

/// Eight characters, each a digit, "-" or ".": 20240315 gives 15/03/2024. Other texts come back unchanged.
std::string SlashDateFromCompact(std::string_view text);

config::KeyList FeatureChangeKeys();

}  // namespace vexlator::drawing

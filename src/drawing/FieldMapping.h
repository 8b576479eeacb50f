// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "drawing/AttributeTemplate.h"
#include "drawing/Drawing.h"

#include <string>
#include <string_view>

/// Rules that map names and values of the field device to those that a GIS expects.
namespace vexlator::drawing {

/// The name of a template field in a GIS table: its short name if ReProcessFieldNames is on and it has one,
/// else the device's name. A field with the name "NULL" gets no column. Read the fields with
/// NullFields::Keep, because only this rule decides between the two names.
std::string_view MappedFieldName(const config::SharedSettings& settings, const AtpField& field);

/// Cuts a value of the form code, separator SHORTENFIELDSON, description to its code of one to three
/// characters ("AB-Tarmac" to "AB"), unless a blank is beside the separator. Returns a part of `value`.
std::string_view ShortenValue(const config::SharedSettings& settings, std::string_view value);

/// Moves the entities of feature codes to other codes and renames their attributes by section INOUTFEATCHANGE
/// of the configuration file (CODE = new code, CODE_Fields = old|new,old|new); "" means gv.ini. Frozen layers
/// and layer "0" stay unchanged. Each existing layer is changed once. Changes are in memory only.
void ApplyFeatureChanges(config::Run& run, Drawing& drawing, std::string_view configFile);

/// The layer with that name, added if missing; it becomes the active one.
Layer& FindOrAddLayer(Drawing& drawing, std::string_view name);

/// Renames the entity's first attribute of that name, in any letter case. A message reports a missing
/// attribute. If the new name contains "Date", a compact date in the value is written with slashes.
void RenameAttribute(config::Run& run, Entity entity, std::string_view oldName, std::string_view newName);

/// Converts eight characters, each a digit, "-" or ".": 20240315 gives 15/03/2024. Other texts come back
/// unchanged.
std::string SlashDateFromCompact(std::string_view text);

config::KeyList FeatureChangeKeys();

}  // namespace vexlator::drawing

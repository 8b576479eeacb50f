// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Run.h"
#include "drawing/Drawing.h"

#include <string>
#include <string_view>

namespace vexlator::importer {

/// Makes the layer of a feature code the active one, with the colour of the code's style. Without a style,
/// the colour's palette index is the number of layers. Returns the style text, "" if there is none.
/// @throws platform::ReadError for a template that cannot be read
std::string SelectFeatureLayer(config::Run& run, drawing::Drawing& drawing, std::string_view code);

/// The path of the code's shared attribute template.
std::string FeatureTemplatePath(const config::Run& run, std::string_view code);

/// Offers the templates of what another program has imported.
void OfferTemplates(config::Run& run, const config::ConversionReport& report);

}  // namespace vexlator::importer

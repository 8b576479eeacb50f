// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"
#include "ui/UserInterface.h"

#include <optional>
#include <span>
#include <string_view>

namespace vexlator::background {

/// Where the texts of a preview are.
constexpr std::string_view annotationLayer = "FEATURE_ANNO";

/// Adds the annotation that a package would have of the drawing's points, symbols and polylines, as texts.
/// @param fixedHeight of every text, drawing units; none: as the feature asks for
/// @param userInterface is told of symbols that cannot be read
void AddAnnotationTexts(drawing::Drawing& drawing, std::span<const ListedName> fields,
                        std::optional<double> fixedHeight, ui::UserInterface& userInterface);

}  // namespace vexlator::background

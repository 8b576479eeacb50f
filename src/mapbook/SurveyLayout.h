// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string_view>

/// The layout of drainage surveys: texts, line types, fills and slope symbols that features get for print.
/// Applied again, it gives the same.
namespace vexlator::mapbook {

/// Sizes in ground units.
struct LayoutSizes {
    double text = 1;
    double tadpole = 2.5, tadpoleSpacing = 2;

    /// Two millimetres high texts, five millimetres long tadpoles on paper. @param denominator of the map's
    /// scale
    static LayoutSizes ForScale(double denominator);
};

/// Empties a layer and makes it the active one, with the style that new entities shall have.
void BeginLayer(drawing::Drawing& drawing, std::string_view name);

/// Gives each feature of a layer the value of an attribute as a text on another layer, which is emptied
/// first: beside a symbol, along the middle of a line, in the middle of an area. A source layer of "" means
/// all layers.
void Annotate(drawing::Drawing& drawing, std::string_view attribute, std::string_view sourceLayer,
              std::string_view annotationLayer, const LayoutSizes& sizes);

/// The four families of features that a survey annotates.
void AnnotateSurvey(drawing::Drawing& drawing, const LayoutSizes& sizes);

/// A polyline on layer L gets the line type "Line" + L, if there is one. Standing waters are filled.
void StylePolylines(drawing::Drawing& drawing);

/// Draws the slopes of embankments and cuttings anew, on layer TADPOLES. The drawing has the block "Tadpole".
void DrawTadpoles(drawing::Drawing& drawing, const LayoutSizes& sizes);

}  // namespace vexlator::mapbook

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::importer {

/// Data from the template of a feature code.
struct FeatureTemplate {
    std::string style;                     ///< its STYLE text; empty if there is none
    std::vector<std::string> fields;       ///< names of its attributes
    drawing::AttributeSet attributes = 0;  ///< the same, in the drawing
    drawing::AttributeSet identity = 0;    ///< the only attribute of features without an attribute record
    std::optional<std::size_t> hotlink;    ///< the last field with the name HOTLINK, which names a photograph
    std::optional<std::string> symbol;     ///< block of its points, after the first look-up
};

/// Makes the layer of a feature code the current one, with the colour, attributes and symbol of its template.
/// Each template is read once per run.
class FeatureLayers {
public:
    enum class Kind { Point, Line };

    FeatureLayers(config::Run& run, drawing::Drawing& drawing);

    /// The code that a point code stands for. The text stays in its place.
    const std::string& MapAliasCode(std::string_view code);

    /// Changes nothing, not even the symbol, if the code's layer is the current one and has a style.
    void SelectFeatureLayer(std::string_view code, Kind kind);
    /// The last selected code. Only after the first SelectFeatureLayer().
    const FeatureTemplate& Current() const { return *current_; }
    /// The block for points; empty if no point code has been selected, or if there is no symbol.
    const std::string& SymbolBlock() const { return symbol_; }
    /// The next SelectFeatureLayer() starts anew, because the last selected layer will be erased.
    void Forget() { current_ = nullptr; }

private:
    FeatureTemplate& TemplateOf(const std::string& code);
    void LoadTemplate(FeatureTemplate& target, const std::string& code);

    config::Run& run_;
    drawing::Drawing& drawing_;
    std::unordered_map<std::string, std::string> aliases_;
    std::unordered_map<std::string, FeatureTemplate> templates_;
    FeatureTemplate* current_ = nullptr;
    std::string symbol_;
};

}  // namespace vexlator::importer

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

/// What the template of a feature code says of its features.
struct FeatureTemplate {
    std::string style;                     ///< its STYLE text; empty when there is none
    std::vector<std::string> fields;       ///< names of its attributes
    drawing::AttributeSet attributes = 0;  ///< the same, in the drawing
    drawing::AttributeSet identity = 0;    ///< the one attribute of features that have no attribute record
    std::optional<std::size_t> hotlink;    ///< the last field called HOTLINK, which names a photograph
    std::optional<std::string> symbol;     ///< block of its points, once it has been looked up
};

/// Makes the layer of a feature code the current one, with the colour, attributes and symbol that its
/// template gives it. Templates are read once for each code of a run.
class FeatureLayers {
public:
    enum class Kind { Point, Line };

    FeatureLayers(config::Run& run, drawing::Drawing& drawing);

    /// The code that a point code stands for. The text stays where it is.
    const std::string& MapAliasCode(std::string_view code);

    /// Nothing changes, the symbol neither, when the code's layer is the current one and has a style.
    void SelectFeatureLayer(std::string_view code, Kind kind);
    /// The code selected last. Only after the first SelectFeatureLayer().
    const FeatureTemplate& Current() const { return *current_; }
    /// The block for points; empty when no point code has been selected, or when there is no symbol.
    const std::string& SymbolBlock() const { return symbol_; }
    /// The next SelectFeatureLayer() starts afresh: the layer selected last is to be erased.
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

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/FeatureLayers.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "import/FeatureCode.h"
#include "util/Text.h"

namespace vexlator::importer {

namespace {

/// Attribute values are in the order of all fields of the template, including those with the name NULL.
std::vector<std::string> LoadTemplateFieldNames(const std::string& templatePath) {
    std::vector<std::string> names;
    for (drawing::AtpField& field : drawing::ReadAtpFields(templatePath, drawing::NullFields::Keep))
        names.push_back(std::move(field.name));
    return names;
}

}  // namespace

FeatureLayers::FeatureLayers(config::Run& run, drawing::Drawing& drawing) : run_(run), drawing_(drawing) {}

const std::string& FeatureLayers::MapAliasCode(std::string_view code) {
    auto [place, isNew] = aliases_.try_emplace(std::string(code));
    if (isNew) place->second = drawing::ResolveAtpAlias(run_, code);
    return place->second;
}

void FeatureLayers::SelectFeatureLayer(std::string_view code, Kind kind) {
    std::string name = Capitals(code);
    if (current_ && !current_->style.empty() && name == drawing_.activeLayerName()) return;
    drawing_.setActiveLayer(name);
    current_ = &TemplateOf(name);
    if (current_->style.empty())
        drawing_.setActiveColourIndex(static_cast<drawing::Colour>(drawing_.layerCount()));
    else
        drawing_.setActiveColour(StyleColour(current_->style));
    if (kind != Kind::Point) return;
    if (!current_->symbol)
        current_->symbol =
            drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, current_->style), drawing_);
    symbol_ = *current_->symbol;
}

FeatureTemplate& FeatureLayers::TemplateOf(const std::string& code) {
    auto [place, isNew] = templates_.try_emplace(code);
    if (isNew) LoadTemplate(place->second, code);
    return place->second;
}

void FeatureLayers::LoadTemplate(FeatureTemplate& target, const std::string& code) {
    target.style = drawing::ReadAtpStyle(run_, code);
    target.fields = LoadTemplateFieldNames(drawing::AtpPathFor(run_, code));
    for (std::size_t i = 0; i < target.fields.size(); ++i)
        if (target.fields[i] == "HOTLINK") target.hotlink = i;
    target.attributes = drawing_.attributeSet(target.fields);
    const std::string identity = target.fields.empty() ? "FOID" : target.fields[0];
    target.identity = drawing_.attributeSet(std::span(&identity, 1));
}

}  // namespace vexlator::importer

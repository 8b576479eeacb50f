// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/GmlEntities.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "import/FeatureCode.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::importer {

namespace {

constexpr std::int32_t polylineWeight = 30;
constexpr std::string_view partNumberName = "MPOLY", holeName = "ISHOLE";
constexpr std::uint64_t copiesAllowed = std::uint64_t{64} << 20;
constexpr std::uint64_t copiesPerByte = 64;

bool IsNumbered(const formats::GmlFeature& feature, const formats::GmlPart& part) {
    return feature.surfaces > 1 && part.kind != formats::GmlPart::Kind::Path;
}

bool HaveSameAttributes(const formats::GmlFeature& feature, const formats::GmlPart& a,
                        const formats::GmlPart& b) {
    bool numbered = IsNumbered(feature, a);
    if (numbered != IsNumbered(feature, b) || (numbered && a.surface != b.surface)) return false;
    return (a.kind == formats::GmlPart::Kind::Hole) == (b.kind == formats::GmlPart::Kind::Hole);
}

}  // namespace

void GmlEntities::BeginFile(bool lineLayout) {
    lineLayout_ = lineLayout;
    previousType_.reset();
    copiedBytes_ = 0;
}

bool GmlEntities::Add(const formats::GmlFeature& feature, std::size_t bytesRead) {
    if (!feature.damage.empty()) return false;
    if (feature.type != previousType_) SelectFeatureTypeLayer(feature.type);
    if (feature.parts.empty()) return false;
    bool isPoint = feature.points.size() == 1;
    if (lineLayout_ && !feature.threeDimensional && !isPoint) run_.Ui().ShowMessage("2d");
    for (std::size_t part = 0; part < feature.parts.size(); ++part) {
        AddPart(feature, part);
        AddAttributes(feature, part, bytesRead);
    }
    return true;
}

void GmlEntities::SelectFeatureTypeLayer(const std::string& type) {
    previousType_ = type;
    drawing_.setActiveLayer(type);
    auto [found, isNew] = types_.try_emplace(type);
    type_ = &found->second;
    if (isNew) {
        type_->style = drawing::ReadAtpStyle(run_, type);
        type_->symbol = drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, type_->style), drawing_);
    }
    drawing_.setActiveStyle({});
    if (type_->style.empty()) {
        drawing_.setActiveColourIndex(static_cast<drawing::Colour>(drawing_.layerCount()));
        return;
    }
    drawing_.setActiveColour(StyleColour(type_->style));
    drawing_.setActiveFillColour(drawing_.activeColour());
}

void GmlEntities::UseLineWeight(std::int32_t weight) {
    if (drawing_.activeStyle().lineWeight == weight) return;
    drawing::Style style = drawing_.activeStyle();
    style.lineWeight = weight;
    drawing_.setActiveStyle(style);
}

void GmlEntities::AddPart(const formats::GmlFeature& feature, std::size_t part) {
    std::size_t begin = feature.parts[part].begin, count = feature.PartEnd(part) - begin;
    const util::PlanePoint* points = feature.points.data() + begin;
    UseLineWeight(count == 1 ? 0 : polylineWeight);
    if (count == 1) {
        drawing_.addInsert({points->x, points->y, 0}, type_->symbol, 1, 1, 0);
    } else {
        drawing_.addPolyline();
        std::copy_n(points, count, drawing_.extendPlan(count).data());
    }
}

void GmlEntities::AddAttributes(const formats::GmlFeature& feature, std::size_t part, std::size_t bytesRead) {
    const formats::GmlPart& current = feature.parts[part];
    if (part > 0) {
        if (HaveSameAttributes(feature, feature.parts[part - 1], current)) {
            drawing_.shareValues();
            return;
        }
        CountCopies(feature, bytesRead);
    }
    AddFeatureProperties(feature, current);
}

void GmlEntities::AddFeatureProperties(const formats::GmlFeature& feature, const formats::GmlPart& part) {
    bool numbered = IsNumbered(feature, part), hole = part.kind == formats::GmlPart::Kind::Hole;
    if (feature.properties.empty() && !numbered && !hole) return;
    drawing_.beginValues(AttributesOf(feature, numbered, hole));
    for (const formats::GmlProperty& property : feature.properties)
        drawing_.appendValue(Stored(property.value));
    if (numbered) drawing_.appendValue(std::to_string(part.surface));
    if (hole) drawing_.appendValue("1");
}

drawing::AttributeSet GmlEntities::AttributesOf(const formats::GmlFeature& feature, bool numbered,
                                                bool hole) {
    auto sameName = [this](const std::string& name, const formats::GmlProperty& property) {
        return name == Stored(property.name);
    };
    if (!std::ranges::equal(type_->names, feature.properties, sameName)) {
        type_->names.clear();
        for (const formats::GmlProperty& property : feature.properties)
            type_->names.emplace_back(Stored(property.name));
        type_->sets = {};
    }
    std::optional<drawing::AttributeSet>& set = type_->sets[(numbered ? 1U : 0U) + (hole ? 2U : 0U)];
    if (!set) {
        std::vector<std::string> names = type_->names;
        if (numbered) names.emplace_back(partNumberName);
        if (hole) names.emplace_back(holeName);
        set = drawing_.attributeSet(names);
    }
    return *set;
}

/// Every surface of a feature has all its properties, so a small file could produce a huge drawing.
void GmlEntities::CountCopies(const formats::GmlFeature& feature, std::size_t bytesRead) {
    for (const formats::GmlProperty& property : feature.properties) copiedBytes_ += property.value.size() + 1;
    if (copiedBytes_ > copiesAllowed + copiesPerByte * bytesRead)
        throw platform::ReadError("", "feature \"" + feature.type + "\" " + feature.identifier,
                                  "has too many surfaces for the length of its properties: " +
                                      util::GroupedCount(feature.parts.size()) + " parts");
}

std::string_view GmlEntities::Stored(std::string_view text) const {
    return lineLayout_ ? text.substr(0, text.find(':')) : text;
}

}  // namespace vexlator::importer

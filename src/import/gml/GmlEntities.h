// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"
#include "formats/gml/GmlFeature.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::importer {

/// Puts the features of GML files into a drawing: a point becomes a symbol, any other part an open polyline,
/// on the layer of the feature's type, with the feature's properties as attributes. Surfaces of a feature
/// that has several carry their number as MPOLY, holes follow their surface and carry ISHOLE.
class GmlEntities {
public:
    GmlEntities(config::Run& run, drawing::Drawing& drawing) : run_(run), drawing_(drawing) {}

    /// In the line layout names and values end at their first ":", and "2d" is shown for each line or surface
    /// whose points have two values.
    void BeginFile(bool lineLayout);
    /// `bytesRead` of the file so far, which bound what features may repeat.
    /// @throws platform::ReadError without file and place
    void Add(const formats::GmlFeature& feature, std::size_t bytesRead);

    /// Of the file.
    std::uint64_t Features() const { return features_; }
    std::uint64_t FeaturesWithoutPoints() const { return withoutPoints_; }
    std::uint64_t FeaturesWithArcs() const { return withArcs_; }
    std::uint64_t DamagedFeatures() const { return damaged_; }
    const std::string& FirstDamage() const { return firstDamage_; }  ///< its line and reason

private:
    /// What the features of a type have in common.
    struct Type {
        std::string style, symbol;
        std::vector<std::string> names;                            ///< properties of the feature read last
        std::array<std::optional<drawing::AttributeSet>, 4> sets;  ///< by what its parts carry beside them
    };

    void SelectFeatureTypeLayer(const std::string& type);
    void UseLineWeight(std::int32_t weight);
    void AddPart(const formats::GmlFeature& feature, std::size_t part);
    void AddAttributes(const formats::GmlFeature& feature, std::size_t part, std::size_t bytesRead);
    void AddFeatureProperties(const formats::GmlFeature& feature, const formats::GmlPart& part);
    drawing::AttributeSet AttributesOf(const formats::GmlFeature& feature, bool numbered, bool hole);
    void CountCopies(const formats::GmlFeature& feature, std::size_t bytesRead);
    std::string_view Stored(std::string_view text) const;

    config::Run& run_;
    drawing::Drawing& drawing_;
    bool lineLayout_ = false;
    std::optional<std::string> previousType_;
    std::unordered_map<std::string, Type> types_;
    Type* type_ = nullptr;
    std::uint64_t features_ = 0, withoutPoints_ = 0, withArcs_ = 0, damaged_ = 0;
    std::string firstDamage_;
    std::uint64_t copiedBytes_ = 0;
};

}  // namespace vexlator::importer

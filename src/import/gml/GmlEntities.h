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

/// Puts the features of GML files into a drawing. A point becomes a symbol, any other part an open polyline.
/// They are on the layer of the feature's type and have the feature's properties as attributes. Several
/// surfaces of a feature have their numbers as MPOLY. Holes follow their surface and have ISHOLE.
class GmlEntities {
public:
    GmlEntities(config::Run& run, drawing::Drawing& drawing) : run_(run), drawing_(drawing) {}

    /// In the line layout, names and values end at their first ":", and "2d" is shown for each line or
    /// surface whose points have two values.
    void BeginFile(bool lineLayout);
    /// Features that are damaged or without points add nothing. `bytesRead` of the file so far, which bound
    /// what features may repeat.
    /// @returns false when nothing came of it
    /// @throws platform::ReadError without file and place
    bool Add(const formats::GmlFeature& feature, std::size_t bytesRead);

private:
    /// Common data of the features of a type.
    struct Type {
        std::string style, symbol;
        std::vector<std::string> names;  ///< properties of the last feature
        std::array<std::optional<drawing::AttributeSet>, 4>
            sets;  ///< by the additional attributes of its parts
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
    std::uint64_t copiedBytes_ = 0;
};

}  // namespace vexlator::importer

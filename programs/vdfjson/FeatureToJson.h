// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace vexlator::vdfjson {

/// Appends entities of one drawing to a buffer as GeoJSON features; see DrawingToJson(). Keeps texts that
/// recur in many entities, so the drawing must not change during its use.
class FeatureToJson {
public:
    explicit FeatureToJson(std::string& out) : out_(out) {}
    void operator()(drawing::Entity entity);

private:
    /// The JSON form of an attribute name.
    struct Name {
        std::string quoted;
        bool isFirst;  ///< no earlier attribute has this name
        std::int32_t typeCode;
    };
    using Names = std::vector<Name>;

    void FormatVertices(const drawing::Entity& entity);
    std::string_view FirstVertex() const { return std::string_view(vertices_).substr(0, firstVertexEnd_); }
    const Names& NamesOf(const drawing::Entity& entity);

    void AppendGeometry(const drawing::Entity& entity);
    void AppendProperties(const drawing::Entity& entity, const Names& names);
    void AppendVdf(const drawing::Entity& entity);
    void AppendCommon(const drawing::Entity& entity);
    void AppendArea(const drawing::Entity& entity);
    void AppendPlace(const drawing::Entity& entity);
    void AppendShape(const drawing::Entity& entity);
    void AppendXProperties(const drawing::Entity& entity, const Names& names);

    void Member(std::string_view name) { out_.append(",\"").append(name).append("\":"); }
    void TextMember(std::string_view name, std::string_view value);
    template <typename Number>
    void NumberMember(std::string_view name, Number value);
    void FlagMember(std::string_view name, bool value);

    std::string& out_;
    std::string vertices_;  ///< positions of the current entity, as "[x,y,z],[x,y,z]"
    std::size_t firstVertexEnd_ = 0;
    bool isFinite_ = true;  ///< every coordinate is a finite number
    std::unordered_map<drawing::AttributeSet, Names> names_;
    std::size_t namesSize_ = 0;  ///< bytes held in names_
};

}  // namespace vexlator::vdfjson

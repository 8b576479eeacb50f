// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/EntityNames.h"
#include "import/xml/XmlAttributeReader.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::importer {

/// Makes one drawing of the elements of an XML document, which come in its order.
/// @throws platform::ReadError without a place, from every member
class DrawingBuilder {
public:
    /// Into an empty drawing goes all; to a filled one entities are added, with new handles, and what it
    /// lacks.
    enum class Into { Empty, Filled };

    DrawingBuilder(drawing::Drawing& drawing, Into into) : drawing_(drawing), into_(into), names_(drawing) {}

    void SetNextHandle(std::uint64_t handle) { nextHandle_ = handle; }
    void AddProperty(const std::string& name, const std::string& value);
    void AddLayer(XmlAttributeReader& attributes);
    void SetActive(XmlAttributeReader& attributes);
    void AddBlock(const std::string& name, std::string content) {
        drawing_.addBlock({name, std::move(content)});
    }

    /// An entity is its begin, its parts, its end.
    void BeginEntity(XmlAttributeReader& attributes);
    /// `numbers` are separated by white space, `dimension` to a vertex.
    void SetVertices(std::string_view numbers, int dimension);
    void SetText(std::string text) { text_ = std::move(text); }
    void SetLabel(std::string text) { label_ = std::move(text); }
    void SetHyperlink(std::string text) { hyperlink_ = std::move(text); }
    void AddValue(std::string_view name, std::int32_t typeCode, std::string_view value);
    void EndEntity();

    /// Call it once, after all entities.
    void Finish();
    drawing::Drawing& Drawing() { return drawing_; }

private:
    void ReadShape(XmlAttributeReader& attributes);
    drawing::Entity Create();

    drawing::Drawing& drawing_;
    Into into_;
    drawing::EntityNames names_;
    std::uint64_t nextHandle_ = 0;
    bool hasLayers_ = false;
    std::string activeLayer_ = "0";
    drawing::Style activeStyle_;
    std::vector<std::uint64_t> handles_;  ///< of all entities, since two must not be alike

    // The current entity.
    std::string kind_, layer_, text_, label_, hyperlink_;
    std::uint64_t handle_ = 0;
    bool closed_ = false, filled_ = false;
    drawing::Style style_;
    drawing::Shape shape_;
    std::vector<drawing::Point> vertices_;
    std::vector<std::string> values_;
    std::size_t valueCount_ = 0;  ///< the first of `values_`; the others are kept for their memory
};

}  // namespace vexlator::importer

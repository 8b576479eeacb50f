// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "platform/Files.h"

#include <cstdint>
#include <string_view>

namespace vexlator::exporter {

/// Writes a drawing in the open XML layout (formats/drawingxml) into a file that the caller commits: Begin(),
/// the drawing's entities in any number of chunks, End(). Nothing of the drawing is left out.
/// @throws platform::WriteError
class DrawingXmlWriter {
public:
    explicit DrawingXmlWriter(platform::OutputFile& file) : file_(file) {}

    /// All but the entities.
    void Begin(const drawing::Drawing& drawing);
    void AddEntities(const drawing::Drawing& chunk);
    void End();

private:
    void Description(const drawing::Drawing& drawing, int depth);
    void AddLayer(const drawing::Layer& layer);
    void AddActive(const drawing::Drawing& drawing);
    void AddBlock(const drawing::Block& block, int depth);
    void AddEntity(const drawing::EntityView& entity);
    void AddShape(const drawing::EntityView& entity, bool escaped);
    void AddStyle(const drawing::Style& style, bool escaped);
    void AddVertices(const drawing::EntityView& entity);
    void AddValues(const drawing::EntityView& entity);
    /// An element with a text; its begin tag is written up to further attributes.
    void TextElement(std::string_view element, std::string_view text);
    void NamedElement(std::string_view element, std::string_view name, std::string_view text,
                      std::int32_t typeCode);
    void Content(std::string_view text, bool escaped);
    void TextAttribute(std::string_view name, std::string_view text, bool escaped);
    template <typename Whole>
    void WholeAttribute(std::string_view name, Whole value, Whole unwritten);
    void NumberAttribute(std::string_view name, double value, double unwritten);
    void Number(double value);

    platform::OutputFile& file_;
    std::uint64_t unpacked_ = 0;  ///< bytes of blocks written as drawings
};

}  // namespace vexlator::exporter

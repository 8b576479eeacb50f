// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Vdf.h"
#include "platform/Files.h"

#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::drawing {

class VdfWriter;

/// A drawing that is written to its file while it is made: for imports, which add entities and never look
/// back. Written entities leave the drawing, so an import of any size needs the memory of one chunk.
///
/// The file appears with Commit(), not before.
/// @throws platform::WriteError from every member that writes
class DrawingSink {
public:
    using Conversion = std::function<void(std::span<PlanePoint>)>;

    DrawingSink();
    ~DrawingSink();
    DrawingSink(const DrawingSink&) = delete;
    DrawingSink& operator=(const DrawingSink&) = delete;

    /// The drawing to fill. Layers, styles and attribute sets stay in it when entities leave it, and handles
    /// continue.
    drawing::Drawing& Drawing() { return drawing_; }
    /// The target.
    void SetPath(std::string_view path) { path_ = path; }

    /// Converts vertices of entities added from now on, in place, before they leave the drawing. Each entity
    /// must be complete before the next is added.
    void ConvertBy(Conversion conversion);
    /// Converts what has been added, but nothing added later.
    void EndConversion();
    /// Call between two features: writes a chunk if there are enough entities for one.
    void FeatureDone() {
        if (IsFull()) WriteEntities();
        Keep();
    }
    /// Takes away what has been added since the last FeatureDone() or Keep(): half of a feature.
    void DropUnfinished();
    void Keep() { firstUnfinished_ = static_cast<std::uint32_t>(drawing_.store().Size()); }
    /// Writes what is left and puts the file in its place.
    void Commit();

private:
    bool IsFull() const {
        return drawing_.store().Size() >= vdf::entitiesPerChunk ||
               drawing_.store().Bytes() > vdf::bytesPerChunk;
    }
    void Convert();
    void WriteEntities();

    drawing::Drawing drawing_;
    std::string path_;
    Conversion conversion_;
    std::uint32_t firstUnconverted_ = 0;        ///< entity
    std::uint32_t firstUnfinished_ = 0;         ///< entity
    std::optional<platform::OutputFile> file_;  ///< opened with the first chunk
    std::unique_ptr<VdfWriter> writer_;
};

}  // namespace vexlator::drawing

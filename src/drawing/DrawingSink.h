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
/// back. What has been written leaves the drawing, so that an import of any size takes the memory of one
/// chunk.
///
/// The file appears with Commit() and not before. @throws platform::WriteError from every member that writes
class DrawingSink {
public:
    using Conversion = std::function<void(std::span<PlanePoint>)>;

    DrawingSink();
    ~DrawingSink();
    DrawingSink(const DrawingSink&) = delete;
    DrawingSink& operator=(const DrawingSink&) = delete;

    /// What is filled. Layers, styles and attribute sets stay in it when entities leave it, and handles go
    /// on.
    drawing::Drawing& Drawing() { return drawing_; }
    /// Where it goes.
    void SetPath(std::string_view path) { path_ = path; }

    /// Vertices of entities that are added from now on are converted, in place, before they leave the
    /// drawing. Each entity has to be built up before the next is added.
    void ConvertBy(Conversion conversion);
    /// Converts what has been added, and nothing that comes.
    void EndConversion();
    /// To be called between two features: when there are enough entities for a chunk, they are written.
    void FeatureDone() {
        if (IsFull()) WriteEntities();
    }
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
    std::optional<platform::OutputFile> file_;  ///< opened with the first chunk
    std::unique_ptr<VdfWriter> writer_;
};

}  // namespace vexlator::drawing

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/Vdf.h"
#include "platform/Files.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace vexlator::drawing {

class VdfWriter;

/// A drawing file that is written while its drawing is made: for imports, which add entities and never look
/// back. What has been written leaves the drawing, so that an import of any size takes the memory of one
/// chunk.
///
/// The file appears with Commit() and not before. @throws platform::WriteError from every member that writes
class DrawingOutput {
public:
    /// The drawing must outlive the output.
    DrawingOutput(Drawing& drawing, std::string_view path);
    ~DrawingOutput();
    DrawingOutput(const DrawingOutput&) = delete;
    DrawingOutput& operator=(const DrawingOutput&) = delete;

    /// Whether there are enough entities for a chunk.
    bool IsFull() const {
        return drawing_.store().Size() >= vdf::entitiesPerChunk ||
               drawing_.store().Bytes() > vdf::bytesPerChunk;
    }
    /// To be called between two features: when there are enough entities for a chunk, they are written and
    /// leave the drawing. All else stays: layers, styles, attribute sets, the next handle.
    void WriteFullChunk() {
        if (IsFull()) WriteEntities();
    }
    /// Writes what is left and puts the file in its place.
    void Commit();

private:
    void WriteEntities();

    Drawing& drawing_;
    std::string path_;
    std::optional<platform::OutputFile> file_;  ///< opened with the first chunk
    std::unique_ptr<VdfWriter> writer_;
};

}  // namespace vexlator::drawing

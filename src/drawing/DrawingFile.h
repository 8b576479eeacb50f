// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "platform/Files.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

namespace vexlator::drawing {

class VdfReader;

/// A drawing file that is read chunk by chunk, any number of times: for conversions that process one entity
/// after the other. For a file of any size, at most 65,536 entities and their contents are in memory.
///
/// Every pass reads and checks the chunks anew. Duplicate handles are not checked, because no caller can look
/// up an entity.
class DrawingFile {
public:
    /// Reads all but the entities. @throws platform::ReadError: file, place and reason
    explicit DrawingFile(std::string_view path);
    ~DrawingFile();
    DrawingFile(const DrawingFile&) = delete;
    DrawingFile& operator=(const DrawingFile&) = delete;

    /// The drawing, with the entities of one chunk at most. Changes to entities are lost with the chunk;
    /// other changes stay.
    Drawing& Current() { return drawing_; }
    /// Of the whole file.
    std::uint64_t EntityCount() const;
    /// Bounding box of all entities, from a pass over all; all 0 without entities.
    /// @throws platform::ReadError
    Box Extents();

    /// Calls `visit(Drawing&)` with every chunk in turn. @throws platform::ReadError
    template <typename Visit>
    void ForEachChunk(Visit visit) {
        for (Rewind(); ReadChunk();) visit(drawing_);
    }
    /// The first entity for which `isWanted(Entity)`; valid until another chunk is read.
    /// @throws platform::ReadError
    template <typename IsWanted>
    std::optional<Entity> FindFirst(IsWanted isWanted) {
        for (Rewind(); ReadChunk();)
            for (std::size_t i = 0; i < drawing_.entityCount(); ++i)
                if (Entity entity = drawing_.entityAt(i); isWanted(entity)) return entity;
        return std::nullopt;
    }

private:
    void Rewind();
    bool ReadChunk();

    Drawing drawing_;
    platform::MappedFile file_;
    std::unique_ptr<VdfReader> reader_;
};

}  // namespace vexlator::drawing

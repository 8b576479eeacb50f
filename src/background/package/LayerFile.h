// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/OutputSet.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::background {

/// A layer whose attributes go into records of one width.
struct ListedLayer {
    int width = 0;          ///< of a record, its CR LF included, in bytes
    std::string fieldList;  ///< width and field names as the header line has them: "64,STREET,HOUSE"
};

struct FreeAttribute {
    std::string_view name, value;
    std::int32_t typeCode = 1000;
};

/// The layer file (.LAY): lines that element headers refer to by number, counted from 0 without the header
/// line. It is made with its first line, as a file of the set. Text is UTF-8 and written as Windows-1252;
/// control characters become blanks, so that a line stays one line.
class LayerFile {
public:
    LayerFile(platform::OutputSet& files, std::string path) : files_(files), path_(std::move(path)) {}

    /// All three return the number of the record. @throws WriteError
    std::int32_t AddLayer(std::string_view name);
    /// The values of the layer's fields that an entity has. Nothing when the width leaves no room for a
    /// record.
    std::optional<std::int32_t> AddListed(const ListedLayer& layer, std::span<const std::string_view> values);
    /// Nothing for an entity without attributes.
    std::optional<std::int32_t> AddFree(std::span<const FreeAttribute> attributes);

    /// Characters that Windows-1252 lacks, written as "?".
    std::uint64_t Replaced() const { return replaced_; }
    bool IsEmpty() const { return file_ == nullptr; }

private:
    void WriteLine(std::string_view bytes);
    std::int32_t WriteRecord(std::string_view bytes);
    std::string Encode(std::string_view text);

    platform::OutputSet& files_;
    std::string path_;
    platform::OutputFile* file_ = nullptr;
    std::int32_t records_ = 0;
    std::uint64_t replaced_ = 0;
    std::string record_;
};

}  // namespace vexlator::background

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

/// A layer whose attributes go into records of fixed width.
struct ListedLayer {
    int width = 0;          ///< width of a record with its CR LF, in bytes
    std::string fieldList;  ///< width and field names in the form of the header line: "64,STREET,HOUSE"
};

struct FreeAttribute {
    std::string_view name, value;
    std::int32_t typeCode = 1000;
};

/// The layer file (.LAY): lines to which element headers refer by number, counted from 0 after the header
/// line. Its first line creates it, as a file of the set. Text is UTF-8 and written as Windows-1252. Control
/// characters become blanks, so that a line stays one line.
class LayerFile {
public:
    LayerFile(platform::OutputSet& files, std::string path) : files_(files), path_(std::move(path)) {}

    /// All three return the number of the record. @throws WriteError
    std::int32_t AddLayer(std::string_view name);
    /// The entity's values of the layer's fields. Nothing if the width is too small for a record.
    std::optional<std::int32_t> AddListed(const ListedLayer& layer, std::span<const std::string_view> values);
    /// Nothing for an entity without attributes.
    std::optional<std::int32_t> AddFree(std::span<const FreeAttribute> attributes);

    /// Characters outside Windows-1252, written as "?".
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

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/Records.h"
#include "platform/Files.h"

#include <cstdint>
#include <cstring>
#include <string_view>

/// For the writers of packages.
namespace vexlator::background {

template <typename Record>
void WriteRecord(platform::OutputFile& file, const Record& record) {
    file.Write({reinterpret_cast<const char*>(&record), sizeof record});
}

/// The entry of a member, whose name has at most 19 characters. @throws platform::WriteError: the container
/// outgrows its offsets
inline BagEntry MakeEntry(const platform::OutputFile& container, std::string_view name, std::uint64_t offset,
                          std::uint64_t length) {
    if (offset + length > mostFileBytes)
        throw platform::WriteError(container.Name(),
                                   "the package would exceed 2 GB, the reach of its offsets");
    BagEntry entry;
    std::memset(entry.name, ' ', sizeof entry.name);
    std::memcpy(entry.name, name.data(), name.size());
    entry.name[name.size()] = '\0';
    entry.offset = static_cast<std::int32_t>(offset);
    entry.length = static_cast<std::int32_t>(length);
    return entry;
}

}  // namespace vexlator::background

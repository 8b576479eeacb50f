// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace vexlator::formats {

/// The bytes of a file from its start, in blocks.
class ByteBlocks {
public:
    static constexpr std::size_t blockSize = std::size_t{1} << 18;

    virtual ~ByteBlocks() = default;
    /// Empty at the end; valid until the next call. @throws platform::ReadError without a file name
    virtual std::string_view Next() = 0;
    /// The number of leading bytes of the file that are no longer needed.
    virtual std::size_t Consumed() const = 0;
};

bool IsGzip(std::span<const std::byte> file);

/// The bytes of a file; those of a gzip file (RFC 1952, section 2.2, with one or more members) are unpacked.
/// Limits: `mostUnpacked` bytes, and 1,000 times the bytes of the file beyond the first 64 MB.
std::unique_ptr<ByteBlocks> BlocksOf(std::span<const std::byte> file, std::uint64_t mostUnpacked);

/// Converts blocks of Windows-1252 to UTF-8.
std::unique_ptr<ByteBlocks> FromWindows1252(std::unique_ptr<ByteBlocks> blocks);

}  // namespace vexlator::formats

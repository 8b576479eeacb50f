// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace vexlator::formats {

/// The bytes of a file from its beginning, block after block.
class ByteBlocks {
public:
    static constexpr std::size_t blockSize = std::size_t{1} << 18;

    virtual ~ByteBlocks() = default;
    /// Empty at the end; good until the next call. @throws platform::ReadError without a file name
    virtual std::string_view Next() = 0;
    /// How many bytes of the file are not needed any more.
    virtual std::size_t Consumed() const = 0;
};

bool IsGzip(std::span<const std::byte> file);

/// The bytes as they stand or, of a gzip file (RFC 1952, with one member or several), unpacked: at most
/// `mostUnpacked` bytes, and at most 1,000 times those of the file beyond the first 64 MB.
std::unique_ptr<ByteBlocks> BlocksOf(std::span<const std::byte> file, std::uint64_t mostUnpacked);

/// Blocks of Windows-1252 as UTF-8.
std::unique_ptr<ByteBlocks> FromWindows1252(std::unique_ptr<ByteBlocks> blocks);

}  // namespace vexlator::formats

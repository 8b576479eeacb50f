// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// The drawing file, format version 500; docs/drawing-format.md describes it byte by byte.
namespace vexlator::drawing {

/// Writes a whole drawing; the caller commits the file.
void WriteVdf(const Drawing& drawing, platform::OutputFile& file);

/// The same as bytes, which are the content of a block.
std::string VdfBytes(const Drawing& drawing);

/// Fills an empty drawing from a file. @throws platform::ReadError: file, chunk and reason
void ReadVdf(std::string_view path, Drawing& drawing);

/// The same from bytes in memory, aligned to 8; errors name no file.
void ReadVdf(std::span<const std::byte> bytes, Drawing& drawing);

/// The same from the content of a block, with any alignment.
void ReadVdf(const Block& block, Drawing& drawing);

/// Constants of the layout for reader and writer. All numbers are little-endian.
namespace vdf {

constexpr std::string_view magic = "VXDRAW\r\n";  ///< the line end reveals damage by text-mode transfers
constexpr std::string_view endMagic = "VXDREND\n";
constexpr std::uint32_t version = 500;
constexpr std::size_t headerSize = 16;   ///< magic, version, 0
constexpr std::size_t frameSize = 16;    ///< before each chunk: its length, its XXH3 checksum
constexpr std::size_t trailerSize = 32;  ///< index offset, index length, index checksum, endMagic
constexpr std::size_t entitiesPerChunk = 65536;
constexpr std::size_t bytesPerChunk = std::size_t{2}
                                      << 20;  ///< size of vertices and texts; a larger chunk ends

/// In a chunk's flags: the entity shares the texts of the entity before it.
constexpr std::uint8_t sameTexts = 32;

}  // namespace vdf

}  // namespace vexlator::drawing

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/ImageTile.h"
#include "background/package/Records.h"
#include "platform/Errors.h"
#include "platform/Files.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/// Reads packages like the device. All returned data has been checked: offsets and lengths are inside their
/// files.
namespace vexlator::background {

/// A record of the index.
struct IndexEntry {
    std::string name;  ///< UTF-8
    std::int16_t kind;
    Box box;
    std::uint64_t offset;  ///< offset of the record in the index
};

/// A file inside the container.
struct ContainedFile {
    std::string name;
    std::uint64_t entryOffset;  ///< offset of its directory entry
    std::uint64_t offset;       ///< offset of its first byte
    std::span<const std::byte> bytes;
};

/// A tile file and the data in its name.
struct Tile {
    const ContainedFile* file;
    std::int32_t number;
    char letter;  ///< 'A' areas, 'L' lines, 'R' (read like 'L'), 'T' texts
    PmmHeader header;
};

/// The files of one package, mapped: index and container.
class PackageReader {
public:
    /// @throws ReadError: file, byte and reason, if a file is missing or a record is invalid
    explicit PackageReader(std::string_view packageFile);

    const std::string& IndexName() const { return index_.Name(); }
    /// Path of a companion of the index: "LAY", "GAZ", "BME".
    std::string Companion(std::string_view extension) const;
    /// The box of the whole package.
    const Box& Extents() const { return extents_; }
    std::span<const IndexEntry> Entries() const { return entries_; }
    /// A mosaic is an index over packages and has no container.
    bool IsMosaic() const;
    const std::vector<ContainedFile>& Files() const { return files_; }
    /// Whether it consists of images.
    bool IsImages() const;
    /// Its images, in the order of the index.
    const std::vector<ImageTile>& Images() const { return images_; }
    /// The tile files, in the order of the container.
    const std::vector<Tile>& Tiles() const { return tiles_; }
    const Tile* FindTile(std::int32_t number, char letter) const;

    [[noreturn]] void FailInIndex(std::uint64_t offset, const std::string& reason) const;
    [[noreturn]] void FailInContainer(std::uint64_t offset, const std::string& reason) const;

private:
    void ReadIndex();
    void ReadContainer();
    void ReadTiles();
    Tile ReadTile(const ContainedFile& file) const;
    void ReadImages();
    ImageTile ReadImage(const IndexEntry& entry, const ContainedFile& file, const ContainedFile& world) const;
    IndexEntry ReadEntry(std::uint64_t offset) const;

    std::string packageFile_;
    platform::MappedFile index_;
    std::optional<platform::MappedFile> container_;
    Box extents_{};
    std::vector<IndexEntry> entries_;
    std::vector<ContainedFile> files_;
    std::vector<ImageTile> images_;
    std::vector<Tile> tiles_;
    std::vector<const Tile*> sorted_;  ///< by number and letter
};

}  // namespace vexlator::background

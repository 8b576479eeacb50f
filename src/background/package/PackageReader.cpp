// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/PackageReader.h"

#include "platform/CodePages.h"
#include "platform/Utf16.h"
#include "util/Paths.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <tuple>

namespace vexlator::background {

namespace {

using platform::ReadError;

template <typename Record>
Record RecordAt(std::span<const std::byte> bytes, std::uint64_t offset) {
    Record record;
    std::memcpy(&record, bytes.data() + offset, sizeof record);
    return record;
}

/// A name field up to its terminator of `unit` zero bytes; nothing if other bytes than padding follow.
std::optional<std::string_view> NameIn(std::string_view field, std::size_t unit) {
    static constexpr std::string_view zeros("\0\0", 2);
    for (std::size_t end = 0; end + unit <= field.size(); end += unit) {
        if (field.substr(end, unit) != zeros.substr(0, unit)) continue;
        bool isPadded = field.substr(end + unit).find_first_not_of(' ') == std::string_view::npos;
        return isPadded ? std::optional(field.substr(0, end)) : std::nullopt;
    }
    return field;
}

bool IsBox(const Box& box) {
    return std::isfinite(box.minX) && std::isfinite(box.minY) && std::isfinite(box.maxX) &&
           std::isfinite(box.maxY) && box.minX <= box.maxX && box.minY <= box.maxY;
}

/// As in 209300724L.PMM.
bool SplitTileName(std::string_view name, std::int32_t& number, char& letter) {
    auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    std::string_view rest(end, name.data() + name.size());
    if (error != std::errc() || number < 0 || rest.size() != 5 || rest.substr(1) != ".PMM") return false;
    letter = rest.front();
    return std::string_view("ALRT").find(letter) != std::string_view::npos &&
           std::to_string(number).size() + rest.size() == name.size();
}

}  // namespace

PackageReader::PackageReader(std::string_view packageFile) : packageFile_(packageFile), index_(packageFile) {
    ReadIndex();
    if (IsMosaic()) return;
    container_.emplace(Companion("BAG"));
    ReadContainer();
    if (IsImages())
        ReadImages();
    else
        ReadTiles();
}

std::string PackageReader::Companion(std::string_view extension) const {
    return util::ChangeExtension(packageFile_, extension);
}

void PackageReader::FailInIndex(std::uint64_t offset, const std::string& reason) const {
    throw ReadError(index_.Name(), ReadError::AtByte(offset), reason);
}

void PackageReader::FailInContainer(std::uint64_t offset, const std::string& reason) const {
    throw ReadError(container_->Name(), ReadError::AtByte(offset), reason);
}

bool PackageReader::IsMosaic() const {
    return std::ranges::any_of(entries_, [](const auto& entry) { return entry.kind == member::package; });
}

bool PackageReader::IsImages() const {
    return std::ranges::any_of(entries_, [](const auto& entry) { return entry.kind == member::image; });
}

IndexEntry PackageReader::ReadEntry(std::uint64_t offset) const {
    auto record = RecordAt<GrpIndexRecord>(index_.Bytes(), offset);
    auto name = NameIn({record.name, sizeof record.name}, 2);
    if (!name) FailInIndex(offset, "the name is not padded with blanks");
    if (std::ranges::any_of(record.reserved, [](auto byte) { return byte != 0; }))
        FailInIndex(offset + offsetof(GrpIndexRecord, reserved), "reserved bytes are not zero");
    if (record.minZ != 0 || record.maxZ != 0)
        FailInIndex(offset + offsetof(GrpIndexRecord, minZ), "heights are not zero");
    return {platform::Utf8FromUtf16(*name), record.kind,
            Box{record.minX, record.minY, record.maxX, record.maxY}, offset};
}

void PackageReader::ReadIndex() {
    std::uint64_t size = index_.Bytes().size();
    if (size == 0 || size % sizeof(GrpIndexRecord) != 0)
        FailInIndex(size, "the index is not a whole number of 96-byte records");
    auto header = RecordAt<GrpIndexRecord>(index_.Bytes(), 0);
    if (std::string_view(header.name, sizeof header.name).find_first_not_of(' ') != std::string_view::npos)
        FailInIndex(0, "the header record has a name");
    if (header.kind != member::header) FailInIndex(40, "the first record is not a header record");
    extents_ = ReadEntry(0).box;
    for (std::uint64_t at = sizeof(GrpIndexRecord); at < size; at += sizeof(GrpIndexRecord)) {
        IndexEntry entry = ReadEntry(at);
        if (entry.kind < member::tile || entry.kind > member::image)
            FailInIndex(at + 40, "member kind " + std::to_string(entry.kind) + " is unknown");
        bool isEmptyPackage = entry.kind == member::package && entry.box == unsetBox;
        if (!isEmptyPackage && !IsBox(entry.box))
            FailInIndex(at + 48, "the box of " + entry.name + " is not a box");
        entries_.push_back(std::move(entry));
    }
}

/// The directory ends at the first member. Members follow each other without gaps.
void PackageReader::ReadContainer() {
    std::span<const std::byte> bytes = container_->Bytes();
    if (bytes.empty()) return;
    if (bytes.size() < sizeof(BagEntry)) FailInContainer(0, "the directory is truncated");
    std::uint64_t directory = static_cast<std::uint32_t>(RecordAt<BagEntry>(bytes, 0).offset);
    if (directory == 0 || directory % sizeof(BagEntry) != 0 || directory > bytes.size())
        FailInContainer(20, "the first member begins at byte " + std::to_string(directory) +
                                ", which is not the end of a directory");
    std::uint64_t expected = directory;
    for (std::uint64_t at = 0; at < directory; at += sizeof(BagEntry)) {
        auto entry = RecordAt<BagEntry>(bytes, at);
        auto name = NameIn({entry.name, sizeof entry.name}, 1);
        if (!name || name->empty()) FailInContainer(at, "the name is empty or not padded with blanks");
        std::uint64_t offset = static_cast<std::uint32_t>(entry.offset);
        std::uint64_t length = static_cast<std::uint32_t>(entry.length);
        if (offset != expected)
            FailInContainer(at + 20, "member begins at byte " + std::to_string(offset) + ", expected " +
                                         std::to_string(expected));
        if (length > bytes.size() - offset)
            FailInContainer(at + 24, std::to_string(length) + " bytes announced, " +
                                         std::to_string(bytes.size() - offset) + " bytes left");
        files_.push_back({platform::Utf8FromWindows1252(*name), at, offset, bytes.subspan(offset, length)});
        expected += length;
    }
    if (expected != bytes.size()) FailInContainer(expected, "bytes after the last member");
}

Tile PackageReader::ReadTile(const ContainedFile& file) const {
    Tile tile{&file, 0, 0, {}};
    if (!SplitTileName(file.name, tile.number, tile.letter))
        FailInContainer(file.entryOffset, file.name + " is not the name of a tile file");
    if (file.bytes.size() < sizeof(PmmHeader))
        FailInContainer(file.entryOffset + 24, file.name + " is shorter than its header");
    tile.header = RecordAt<PmmHeader>(file.bytes, 0);
    if (tile.header.formatCode != pmmFormatCode)
        FailInContainer(file.offset, file.name + ": format code " + std::to_string(tile.header.formatCode) +
                                         ", expected 2");
    if (!IsBox(tile.header.box)) FailInContainer(file.offset + 1, file.name + ": the box is not a box");
    double tileSize = tile.header.tileSize;
    if (!std::isfinite(tileSize) || tileSize <= 0)
        FailInContainer(file.offset + 33, file.name + ": the tile size is not above 0");
    return tile;
}

void PackageReader::ReadTiles() {
    for (const ContainedFile& file : files_)
        if (!file.name.ends_with(".PMP")) tiles_.push_back(ReadTile(file));
    for (const Tile& tile : tiles_) sorted_.push_back(&tile);
    auto key = [](const Tile* tile) { return std::tuple(tile->number, tile->letter); };
    std::ranges::sort(sorted_, {}, key);
    auto twice = std::ranges::adjacent_find(sorted_, {}, key);
    if (twice != sorted_.end())
        FailInContainer((*twice)->file->entryOffset, (*twice)->file->name + " occurs twice");
}

/// Behind each image comes its world file.
void PackageReader::ReadImages() {
    if (files_.size() != 2 * entries_.size())
        FailInContainer(0, "it does not hold an image and a world file for each record of the index");
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const IndexEntry& entry = entries_[i];
        if (entry.kind != member::image) FailInIndex(entry.offset + 40, "images and others are mixed");
        images_.push_back(ReadImage(entry, files_[2 * i], files_[2 * i + 1]));
    }
}

ImageTile PackageReader::ReadImage(const IndexEntry& entry, const ContainedFile& file,
                                   const ContainedFile& world) const {
    if (file.name != entry.name)
        FailInContainer(file.entryOffset, file.name + " stands in place of " + entry.name);
    if (world.name != util::ChangeExtension(entry.name, "JGW"))
        FailInContainer(world.entryOffset, world.name + " is not the world file of " + entry.name);
    auto size = SizeOfJpeg(file.bytes);
    if (!size) FailInContainer(file.offset, file.name + " is no whole JPEG file");
    try {
        std::string_view text(reinterpret_cast<const char*>(world.bytes.data()), world.bytes.size());
        return {entry.name, file.bytes, size->width, size->height, formats::ParseWorldFile(text)};
    } catch (const ReadError& error) {
        FailInContainer(world.offset, world.name + ": " + error.what());
    }
}

const Tile* PackageReader::FindTile(std::int32_t number, char letter) const {
    auto key = [](const Tile* tile) { return std::tuple(tile->number, tile->letter); };
    auto it = std::ranges::lower_bound(sorted_, std::tuple(number, letter), {}, key);
    return it != sorted_.end() && key(*it) == std::tuple(number, letter) ? *it : nullptr;
}

}  // namespace vexlator::background

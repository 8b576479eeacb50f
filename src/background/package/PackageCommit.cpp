// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/ShowCount.h"
#include "background/package/BagDirectory.h"
#include "background/package/PackageIndex.h"
#include "background/package/PackageWriter.h"
#include "background/package/TileGrid.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cstring>

// The part of PackageWriter that writes the collected data to files.
namespace vexlator::background {

namespace {

/// Once, a tile file without elements had this maximum, and readers still take it for empty.
constexpr double emptyMaximum = -1;

bool HasName(const std::vector<std::string>& names, std::string_view name) {
    return std::ranges::any_of(names, [&](const auto& other) { return platform::SameNoCase(other, name); });
}

/// The box that a user wants the index to have, from the first line of NAME.BME.
Box ReadWantedExtents(const std::string& file) {
    std::string line = util::ReadFirstLine(file);
    auto field = [&](std::size_t index) { return util::GetCommaNumber(index, line); };
    return {field(0), field(1), field(2), field(3)};
}

}  // namespace

std::vector<std::string> PackageFilesIn(std::string_view folder) {
    static constexpr std::string_view extensions[] = {"GRP", "BAG", "LAY", "GAZ", "PMM",
                                                      "PMP", "BME", "DAT", "TXT"};
    std::vector<std::string> names = platform::ListFiles(folder);
    std::erase_if(names, [](const std::string& name) {
        std::string extension = util::ExtensionOf(name);
        return std::ranges::none_of(
            extensions, [&](std::string_view known) { return platform::SameNoCase(extension, known); });
    });
    return names;
}

/// In the order of a folder's listing, which index and container have always had.
std::vector<const TileFile*> PackageWriter::SortedTiles() const {
    std::vector<std::pair<std::string, const TileFile*>> named;
    named.reserve(tiles_.Count());
    tiles_.ForEach(
        [&](const TileFile& tile) { named.emplace_back(TileFileName(tile.number, tile.letter), &tile); });
    std::ranges::sort(named);
    std::vector<const TileFile*> sorted;
    sorted.reserve(named.size());
    for (const auto& [name, tile] : named) sorted.push_back(tile);
    return sorted;
}

void PackageWriter::WriteContainer(std::span<const TileFile* const> tiles, platform::OutputFile& file) {
    std::uint64_t offset = tiles.size() * sizeof(BagEntry);
    for (const TileFile* tile : tiles) {
        std::uint64_t length = sizeof(PmmHeader) + tile->content.Size();
        WriteRecord(file, MakeEntry(file, TileFileName(tile->number, tile->letter), offset, length));
        offset += length;
    }
    for (const TileFile* tile : tiles) {
        WriteRecord(file, PmmHeader{pmmFormatCode, tile->box, tile->tileSize});
        memory_.Copy(tile->content, file);
    }
}

void PackageWriter::WriteIndex(std::span<const TileFile* const> tiles, platform::OutputFile& file) const {
    PackageIndex index;
    for (char letter : {'A', 'T', 'L'})
        for (const TileFile* tile : tiles)
            if (tile->letter == letter && tile->box.maxX != emptyMaximum)
                index.AddIndexEntry(TileFileName(tile->number, letter), tile->box, member::tile);
    std::string extents = util::ChangeExtension(packageFile_, "BME");
    if (!HasName(oldFiles_, util::FileNameOf(extents)) && util::FileSize(extents) > 0)
        index.SetExtents(ReadWantedExtents(extents));
    file.Write(index.Bytes());
}

void PackageWriter::Commit() {
    FinishArea();
    std::vector<const TileFile*> tiles = SortedTiles();
    WriteContainer(tiles, files_.Add(util::ChangeExtension(packageFile_, "BAG")));
    if (!gazetteer_.IsEmpty())
        files_.Add(util::ChangeExtension(packageFile_, "GAZ")).Write(gazetteer_.Text());
    WriteIndex(tiles, files_.Add(packageFile_));
    bool hasLayers = !layers_.IsEmpty();
    if (!files_.CommitAsFolder(folder_, oldFiles_)) {
        files_.Commit();
        RemoveOldFiles(hasLayers);
    }
    ReportRefusals();
}

void PackageWriter::RemoveOldFiles(bool hasLayers) const {
    std::vector<std::string> written = {"GRP", "BAG"};
    if (hasLayers) written.push_back("LAY");
    if (!gazetteer_.IsEmpty()) written.push_back("GAZ");
    for (std::string& name : written) name = util::FileNameOf(util::ChangeExtension(packageFile_, name));
    for (const std::string& name : oldFiles_)
        if (!HasName(written, name)) platform::RemoveFile(util::JoinPath(folder_, name));
}

void PackageWriter::ReportRefusals() {
    Refusals& counts = refused_;
    counts.replaced += layers_.Replaced() + gazetteer_.Replaced();
    ShowCount(ui_, counts.negative, "Features with negative coordinates, not in the package");
    ShowCount(ui_, counts.tooFar, "Features outside the grid of tiles, not in the package");
    ShowCount(ui_, counts.tooLong, "Lines with too many vertices, not in the package");
    ShowCount(ui_, counts.textsCut, "Texts that were cut");
    ShowCount(ui_, counts.replaced, "Characters outside Windows-1252, written as \"?\"");
}

}  // namespace vexlator::background

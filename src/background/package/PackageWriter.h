// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/FeatureHeader.h"
#include "background/package/Gazetteer.h"
#include "background/package/LayerFile.h"
#include "background/package/Records.h"
#include "background/package/TextAnchor.h"
#include "background/package/TileMemory.h"
#include "background/package/TileTable.h"
#include "platform/Files.h"
#include "platform/OutputSet.h"
#include "ui/UserInterface.h"
#include "util/Geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// Counts of data that a package could not take: entities with a refused element, once each, and texts.
struct Refusals {
    std::uint64_t negative = 0;  ///< with a coordinate below 0
    std::uint64_t tooFar = 0;    ///< with coordinates without a tile number, or not finite
    std::uint64_t tooLong = 0;   ///< with a line of more than 32,767 vertices and sub-steps
    std::uint64_t textsCut = 0;  ///< texts too long for an element: their start is in the package
    std::uint64_t replaced = 0;  ///< characters outside Windows-1252, written as "?"
};

/// Writes one background package from elements, layer records and search values.
///
/// Call Feature() for each feature, then write its elements: WriteLineElement() for lines and points and, if
/// a line is also an area, WriteAreaRing() directly after it. Nothing of the package is visible before
/// Commit(), which puts all files in place in one step and removes the files of an earlier package from the
/// folder. If the folder holds other files too, or cannot be swapped, each file takes its place in a separate
/// step, the index last. Without Commit() the old package stays.
///
/// Tiles are in memory up to a limit; beyond it they move to a scratch file beside the package.
/// @throws WriteError: from every member that writes, if the disk fails, or if the package exceeds 2 GB, the
/// limit of its offsets
class PackageWriter {
public:
    static constexpr double usualTileSize = 250;
    static constexpr std::size_t usualMemory = std::size_t{512} << 20;

    /// `packageFile` is the path of the index, FOLDER\NAME.GRP; the folder must exist.
    PackageWriter(std::string_view packageFile, ui::UserInterface& userInterface,
                  std::size_t memoryBytes = usualMemory);

    double DefaultTileSize() const { return tileSize_; }
    /// Above 0; applies to the following elements.
    void SetDefaultTileSize(double units) { tileSize_ = units; }
    /// The following elements belong to another entity. One refused element of it is counted, but none if one
    /// was counted before.
    void BeginEntity(bool isCounted = false) { isCounted_ = isCounted; }
    bool IsCounted() const { return isCounted_; }
    /// The header of the following elements.
    FeatureHeader& Feature() { return feature_; }
    LayerFile& Layers() { return layers_; }
    Gazetteer& Search() { return gazetteer_; }

    /// Writes one line; a point is a line of one vertex. A hole goes to the tile of the line before it, its
    /// outer ring. Returns the element's offset in its tile file; nothing if it was refused.
    std::optional<std::int32_t> WriteLineElement(std::span<const util::PlanePoint> points,
                                                 bool isHole = false);

    enum class AreaRing { StartsArea, JoinsArea };
    /// Makes the last line a ring of an area: a new one, or the area of the line before, without another area
    /// in between. Not for a refused line. `part` makes a new area that part (0 to 245) of a multi-part
    /// feature.
    void WriteAreaRing(AreaRing ring = AreaRing::StartsArea, std::optional<int> part = std::nullopt);

    /// False if it was refused.
    bool WriteTextElement(const TextPlacement& placement, std::string_view utf8);

    const Refusals& Refused() const { return refused_; }
    /// The largest vertex count of a line element so far.
    std::int16_t LargestCount() const { return largestCount_; }

    void Commit();

private:
    struct LastLine {
        std::int32_t tile, keyHigh, keyLow, offset;
        util::PlanePoint anchor;
        double size;
        Box box;
    };
    struct OpenArea {
        std::int32_t tile;
        ElementHeader header;
        AreaRecord record;
        std::vector<RingReference> rings;
    };

    void Refuse(std::uint64_t& count);
    bool RefuseNegative(const Box& box);
    ElementHeader Header(std::uint8_t type) const;
    TileFile& SelectTileFile(std::int32_t number, char letter, util::PlanePoint anchor, double tileSize);
    TileFile& SelectAreaFile();
    std::int32_t PlaceFor(const TileFile& tile, std::uint64_t elementSize) const;
    void OpenNewArea(std::optional<int> part);
    void CheckForSmallCoordinates();
    void FinishArea();
    std::vector<const TileFile*> SortedTiles() const;
    void WriteContainer(std::span<const TileFile* const> tiles, platform::OutputFile& file);
    void WriteIndex(std::span<const TileFile* const> tiles, platform::OutputFile& file) const;
    void RemoveOldFiles(bool hasLayers) const;
    void ReportRefusals();

    std::string packageFile_, folder_;
    ui::UserInterface& ui_;
    platform::ExclusiveUse lock_;
    std::vector<std::string> oldFiles_;  ///< names of what earlier builds left in the folder
    platform::OutputSet files_;
    TileMemory memory_;
    LayerFile layers_;
    Gazetteer gazetteer_;

    FeatureHeader feature_;
    std::int16_t textLength_ = 0;
    double tileSize_ = usualTileSize;
    TileTable tiles_;
    std::optional<LastLine> lastLine_;
    std::optional<OpenArea> openArea_;
    std::vector<Step> steps_;
    std::int16_t largestCount_ = 0;
    Refusals refused_;
    bool isCounted_ = false;  ///< the entity is among them
};

/// The names of the files in a folder that belong to packages. A new package replaces all of them: .GRP,
/// .BAG, .LAY, .GAZ, .PMM, .PMP, .BME, .DAT and .TXT.
std::vector<std::string> PackageFilesIn(std::string_view folder);

}  // namespace vexlator::background

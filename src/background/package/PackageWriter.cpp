// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/PackageWriter.h"

#include "background/package/LineSteps.h"
#include "background/package/TileGrid.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Angles.h"
#include "util/Paths.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace vexlator::background {

namespace {

using util::PlanePoint;

constexpr std::size_t longestText = std::numeric_limits<std::int16_t>::max() - sizeof(TextRecord);
constexpr int mostParts = 255 - element::firstAreaPart;
constexpr double tenthsOfDegreesPerTurn = 3600;
constexpr std::int16_t leastHeight = 1;  // the device shows nothing for 0

struct Outline {
    Box box = Box::Empty();
    PlanePoint mean;
};

Outline Measure(std::span<const PlanePoint> points) {
    Outline outline;
    for (PlanePoint point : points) {
        outline.box.Widen(point.x, point.y);
        outline.mean.x += point.x;
        outline.mean.y += point.y;
    }
    outline.mean.x /= static_cast<double>(points.size());
    outline.mean.y /= static_cast<double>(points.size());
    return outline;
}

/// 0 for a text that is not a number.
std::int16_t Cut16(double value) {
    if (std::isnan(value)) return 0;
    constexpr double most = std::numeric_limits<std::int16_t>::max();
    return static_cast<std::int16_t>(std::clamp(std::trunc(value), -most, most));
}

/// Height and rotation as in the record. The position follows when they are known.
TextRecord RecordFor(const TextPlacement& placement) {
    double tenths = std::nearbyint(placement.angle * util::degreesPerRadian * 10);
    if (std::abs(tenths) > std::numeric_limits<std::int16_t>::max())
        tenths = std::fmod(tenths, tenthsOfDegreesPerTurn);
    return {0, 0, std::max(leastHeight, Cut16(placement.height * 10)), Cut16(tenths)};
}

}  // namespace

PackageWriter::PackageWriter(std::string_view packageFile, ui::UserInterface& userInterface,
                             std::size_t memoryBytes)
    : packageFile_(packageFile),
      folder_(util::FolderOf(packageFile)),
      ui_(userInterface),
      lock_(folder_, "somebody else is building a package here; try again when that has ended"),
      oldFiles_(PackageFilesIn(folder_)),
      memory_(folder_, memoryBytes),
      layers_(files_, util::ChangeExtension(packageFile, "LAY")) {
    // Where a killed run was swapping the folder.
    std::string told = platform::RemoveLeftovers(util::FolderOf(folder_));
    if (!told.empty()) ui_.Report(told);
}

ElementHeader PackageWriter::Header(std::uint8_t type) const {
    return {type,           feature_.keyHigh, feature_.keyLow, textLength_, feature_.classA, feature_.classB,
            feature_.classC};
}

void PackageWriter::Refuse(std::uint64_t& count) {
    if (!std::exchange(isCounted_, true)) ++count;
}

/// Whether the element is outside the positive grid, which tile numbers require.
bool PackageWriter::RefuseNegative(const Box& box) {
    bool isNegative = box.minX < 0 || box.minY < 0;
    if (isNegative) Refuse(refused_.negative);
    return isNegative;
}

TileFile& PackageWriter::SelectTileFile(std::int32_t number, char letter, PlanePoint anchor,
                                        double tileSize) {
    auto [tile, isNew] = tiles_.At(number, letter);
    if (isNew) {
        tile.box = Box::At(anchor.x, anchor.y);
        tile.tileSize = tileSize;
    }
    return tile;
}

/// Tile of the last line.
TileFile& PackageWriter::SelectAreaFile() {
    double tileSize = tileSize_ / 2 < lastLine_->box.Size() ? tileSize_ * 10 : tileSize_;
    return SelectTileFile(lastLine_->tile, 'A', lastLine_->anchor, tileSize);
}

/// Start of the next element of the file.
std::int32_t PackageWriter::PlaceFor(const TileFile& tile, std::uint64_t elementSize) const {
    std::uint64_t offset = sizeof(PmmHeader) + tile.content.Size();
    if (offset + elementSize > mostFileBytes)
        throw platform::WriteError(platform::NativePath(packageFile_), "a tile file would exceed 2 GB");
    return static_cast<std::int32_t>(offset);
}

std::optional<std::int32_t> PackageWriter::WriteLineElement(std::span<const PlanePoint> points, bool isHole) {
    if (points.empty()) {
        ui_.ShowMessage("LOW Element Line 0");
        return std::nullopt;
    }
    Outline outline = Measure(points);
    if (RefuseNegative(outline.box)) return std::nullopt;
    double size = outline.box.Size();
    PlanePoint anchor = outline.mean;
    if (isHole && lastLine_) {
        size = lastLine_->size;
        anchor = lastLine_->anchor;
    }
    double tileSize = TileSizeFor(tileSize_, size);
    auto number = TileNumber(tileSize, anchor);
    if (!number || !std::isfinite(outline.mean.x + outline.mean.y)) {
        Refuse(refused_.tooFar);
        return std::nullopt;
    }
    tiles_.Prefetch(*number, 'L');
    tiles_.Prefetch(*number, 'A');
    if (!EncodeSteps(points, steps_)) {
        Refuse(refused_.tooLong);
        return std::nullopt;
    }
    TileFile& tile = SelectTileFile(*number, 'L', anchor, tileSize);
    std::string_view steps(reinterpret_cast<const char*>(steps_.data()), steps_.size() * sizeof(Step));
    std::int32_t offset = PlaceFor(tile, sizeof(ElementHeader) + sizeof(LineStart) + steps.size());
    auto count = static_cast<std::int16_t>(steps_.size() + 1);
    memory_.AppendRecord(tile.content, Header(element::line));
    memory_.AppendRecord(tile.content, LineStart{count, points[0].x, points[0].y});
    memory_.Append(tile.content, steps);
    tile.box.Widen(outline.box);
    largestCount_ = std::max(largestCount_, count);
    lastLine_ = {*number, feature_.keyHigh, feature_.keyLow, offset, anchor, size, outline.box};
    return offset;
}

void PackageWriter::OpenNewArea(std::optional<int> part) {
    FinishArea();
    int type = part ? element::firstAreaPart + std::clamp(*part, 0, mostParts) : element::area;
    openArea_ = {lastLine_->tile, Header(static_cast<std::uint8_t>(type)), {lastLine_->box, 0}, {}};
    SelectAreaFile();
}

void PackageWriter::CheckForSmallCoordinates() {
    const Box& area = openArea_->record.box;
    if (lastLine_->box.minX < 1) ui_.ShowMessage("suspicious 1 VSmall min made");
    if (area.minX < 1 || area.maxX < 1) ui_.ShowMessage("suspicious 2 VSmall min made");
}

void PackageWriter::WriteAreaRing(AreaRing ring, std::optional<int> part) {
    if (!lastLine_) return;
    bool isFull = openArea_ && openArea_->rings.size() == std::numeric_limits<std::int16_t>::max();
    if (ring == AreaRing::StartsArea || !openArea_ || isFull) OpenNewArea(part);
    openArea_->record.box.Widen(lastLine_->box);
    CheckForSmallCoordinates();
    tiles_.At(openArea_->tile, 'A').first.box.Widen(lastLine_->box);
    openArea_->rings.push_back(
        {1, lastLine_->keyHigh, lastLine_->keyLow, lastLine_->offset, lastLine_->tile});
}

/// An area is written when all its rings are known, so that its references follow it.
void PackageWriter::FinishArea() {
    if (!openArea_) return;
    auto& [number, header, record, rings] = *openArea_;
    TileFile& tile = tiles_.At(number, 'A').first;
    std::string_view references(reinterpret_cast<const char*>(rings.data()),
                                rings.size() * sizeof(RingReference));
    PlaceFor(tile, sizeof header + sizeof record + references.size());
    record.rings = static_cast<std::int16_t>(rings.size());
    memory_.AppendRecord(tile.content, header);
    memory_.AppendRecord(tile.content, record);
    memory_.Append(tile.content, references);
    openArea_.reset();
}

bool PackageWriter::WriteTextElement(const TextPlacement& placement, std::string_view utf8) {
    std::string text = platform::Windows1252FromUtf8(utf8, &refused_.replaced);
    if (text.size() > longestText) {
        text.resize(longestText);
        ++refused_.textsCut;
    }
    TextRecord record = RecordFor(placement);
    double height = record.height, rotation = record.rotation;
    auto anchor = TextAnchor(placement.insertion, placement.positionCode, height, rotation, text.size());
    if (!anchor) {
        ui_.ShowMessage("unk Digi Pos " + std::to_string(placement.positionCode));
        anchor = TextAnchor(placement.insertion, -1, height, rotation, text.size());
    }
    if (RefuseNegative(Box::At(anchor->x, anchor->y))) return false;
    auto number = TileNumber(tileSize_, *anchor);
    if (!number) {
        Refuse(refused_.tooFar);
        return false;
    }
    record.x = anchor->x;
    record.y = anchor->y;
    textLength_ = static_cast<std::int16_t>(sizeof record + text.size());
    TileFile& tile = SelectTileFile(*number, 'T', *anchor, tileSize_);
    PlaceFor(tile, sizeof(ElementHeader) + sizeof record + text.size());
    memory_.AppendRecord(tile.content, Header(element::text));
    memory_.AppendRecord(tile.content, record);
    memory_.Append(tile.content, text);
    tile.box.Widen(anchor->x, anchor->y);
    return true;
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/PackageProof.h"

#include "background/package/ElementReader.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <unordered_map>

namespace vexlator::background {

namespace {

using platform::ReadError;

/// Coordinates are doubles; sums of steps and means of vertices lose their last digits.
constexpr double floatTolerance = 1e-6, relativeTolerance = 1e-11;
/// By how much a step of a line may miss its true vertex.
constexpr double stepTolerance = 0.005;

double RoundingAt(double x, double y) {
    return floatTolerance + relativeTolerance * std::max(std::abs(x), std::abs(y));
}

double ToleranceOf(const std::vector<util::PlanePoint>& points) {
    return RoundingAt(points.front().x, points.front().y) +
           stepTolerance * static_cast<double>(points.size());
}

bool SameClasses(const ElementHeader& a, const ElementHeader& b) {
    return a.classA == b.classA && a.classB == b.classB && a.classC == b.classC;
}

/// A line element, as far as areas are concerned.
struct Ring {
    std::uint64_t offset;
    ElementHeader header;
    Box pointBox, vertexBox;
    double tolerance;
};

/// What one package is proved by, file by file.
class Proof {
public:
    explicit Proof(const PackageReader& package) : package_(package) {}

    PackageCounts Run() {
        ProveIndex();
        for (const Tile& tile : package_.Tiles())
            if (tile.letter == 'L' || tile.letter == 'R') ProveLines(tile);
        for (const Tile& tile : package_.Tiles()) {
            if (tile.letter == 'A') ProveAreas(tile);
            if (tile.letter == 'T') ProveTexts(tile);
        }
        counts_.tiles = package_.Tiles().size();
        return counts_;
    }

private:
    [[noreturn]] void Fail(const Tile& tile, std::uint64_t offset, const std::string& reason) const {
        package_.FailInContainer(tile.file->offset + offset, tile.file->name + ": " + reason);
    }

    void ProveIndex() const;
    void ProveExtents() const;
    void ProveLines(const Tile& tile);
    void ProveAreas(const Tile& tile);
    void ProveTexts(const Tile& tile);
    void ProveArea(const Tile& tile, const Element& area);
    const Ring& FindRing(const Tile& tile, std::uint64_t offset, const RingReference& reference) const;

    const PackageReader& package_;
    std::unordered_map<std::int32_t, std::vector<Ring>> rings_;  ///< of the "L" files, by tile number
    PackageCounts counts_;
};

void Proof::ProveIndex() const {
    std::map<std::string, const IndexEntry*> byName;
    for (const IndexEntry& entry : package_.Entries()) {
        if (entry.kind != member::tile)
            package_.FailInIndex(entry.offset + 40, "tiles and packages are mixed");
        if (!byName.emplace(entry.name, &entry).second)
            package_.FailInIndex(entry.offset, entry.name + " is there twice");
    }
    for (const Tile& tile : package_.Tiles()) {
        auto it = byName.find(tile.file->name);
        bool isIndexed = tile.header.box.maxX != -1;
        if ((it != byName.end()) != isIndexed)
            package_.FailInContainer(tile.file->entryOffset, tile.file->name + " is not in the index");
        if (!isIndexed) continue;
        if (!(it->second->box == tile.header.box))
            package_.FailInIndex(it->second->offset + 48, "the box differs from that of " + tile.file->name);
        byName.erase(it);
    }
    if (!byName.empty())
        package_.FailInIndex(byName.begin()->second->offset,
                             byName.begin()->first + " is not a tile file of the container");
    ProveExtents();
}

/// The index covers its members, or has the box that the .BME file gives it.
void Proof::ProveExtents() const {
    Box box = unsetBox;
    for (const IndexEntry& entry : package_.Entries()) box.Widen(entry.box);
    std::string line = util::ReadFirstLine(package_.Companion("BME"));
    auto field = [&](std::size_t index) { return util::GetCommaNumber(index, line); };
    if (!line.empty()) box = {field(0), field(1), field(2), field(3)};
    if (!(box == package_.Extents())) package_.FailInIndex(48, "the box is not that of the members");
}

void Proof::ProveLines(const Tile& tile) {
    ElementReader reader(package_, tile);
    std::vector<Ring>& rings = rings_[tile.number];
    Box all = Box::Empty();
    double most = 0;
    for (Element line; reader.Next(line);) {
        double tolerance = ToleranceOf(line.points);
        if (!tile.header.box.Contains(line.vertexBox, tolerance))
            Fail(tile, line.offset, "the line leaves the box of its file");
        if (tile.letter == 'L')
            rings.push_back({line.offset, line.header, line.pointBox, line.vertexBox, tolerance});
        all.Widen(line.pointBox);
        most = std::max(most, tolerance);
        counts_.vertices += line.points.size();
        ++(line.points.size() == 1 ? counts_.points : counts_.lines);
    }
    if (!all.Contains(tile.header.box, most)) Fail(tile, 1, "the box is larger than its lines");
}

void Proof::ProveTexts(const Tile& tile) {
    ElementReader reader(package_, tile);
    Box all = Box::Empty();
    for (Element text; reader.Next(text); ++counts_.texts) all.Widen(text.text.x, text.text.y);
    if (!(all == tile.header.box)) Fail(tile, 1, "the box is not that of the texts");
}

/// The box of an "A" file begins with the middle of an outline, which lies in the "L" file's box.
void Proof::ProveAreas(const Tile& tile) {
    ElementReader reader(package_, tile);
    const Tile* lines = package_.FindTile(tile.number, 'L');
    if (lines == nullptr) Fail(tile, 0, "there is no file of lines for it");
    Box all = lines->header.box;
    for (Element area; reader.Next(area);) {
        ProveArea(tile, area);
        Box box = area.area.box;
        if (!tile.header.box.Contains(box))
            Fail(tile, area.offset + 14, "the area leaves the box of its file");
        all.Widen(box);
    }
    if (!all.Contains(tile.header.box, RoundingAt(all.maxX, all.maxY)))
        Fail(tile, 1, "the box is larger than its areas");
}

void Proof::ProveArea(const Tile& tile, const Element& area) {
    Box points = Box::Empty(), vertices = Box::Empty();
    double tolerance = 0;
    const std::uint64_t first = area.offset + sizeof(ElementHeader) + sizeof(AreaRecord);
    std::uint64_t at = first;
    for (const RingReference& reference : area.rings) {
        const Ring& ring = FindRing(tile, at, reference);
        if (at == first) {
            if (reference.tile != tile.number) Fail(tile, at + 14, "the first ring lies in another tile");
            if (!SameClasses(ring.header, area.header)) Fail(tile, at + 10, "the ring has other classes");
            if (reference.keyHigh != area.header.keyHigh || reference.keyLow != area.header.keyLow)
                Fail(tile, at + 2, "the keys are not those of the area");
        }
        points.Widen(ring.pointBox);
        vertices.Widen(ring.vertexBox);
        tolerance = std::max(tolerance, ring.tolerance);
        at += sizeof(RingReference);
    }
    Box box = area.area.box;
    if (!points.Contains(box, tolerance) || !box.Contains(vertices, tolerance))
        Fail(tile, area.offset + 14, "the box is not that of the rings");
    counts_.rings += area.rings.size();
    ++counts_.areas;
}

const Ring& Proof::FindRing(const Tile& tile, std::uint64_t at, const RingReference& reference) const {
    if (reference.one != 1) Fail(tile, at, "a ring reference begins with " + std::to_string(reference.one));
    std::int32_t number = reference.tile;
    auto rings = rings_.find(number);
    if (rings == rings_.end() || package_.FindTile(number, 'L') == nullptr)
        Fail(tile, at + 14, "there is no tile " + std::to_string(number));
    std::int64_t offset = reference.offset;
    auto ring = std::ranges::lower_bound(rings->second, offset, {},
                                         [](const Ring& it) { return static_cast<std::int64_t>(it.offset); });
    if (ring == rings->second.end() || static_cast<std::int64_t>(ring->offset) != offset)
        Fail(tile, at + 10, "no line begins at byte " + std::to_string(offset) + " of the tile");
    if (ring->header.keyHigh != reference.keyHigh || ring->header.keyLow != reference.keyLow)
        Fail(tile, at + 2, "the keys are not those of the line");
    return *ring;
}

// --- The text files

[[noreturn]] void FailAtLine(const platform::MappedFile& file, std::uint64_t line,
                             const std::string& reason) {
    throw ReadError(file.Name(), ReadError::AtLine(line), reason);
}

void CheckLineEnds(const platform::MappedFile& file, std::uint64_t lines) {
    if (!file.Text().empty() && !file.Text().ends_with("\r\n"))
        FailAtLine(file, lines, "the last line has no end");
}

std::uint64_t ProveLayers(const PackageReader& package) {
    if (!platform::FileExists(package.Companion("LAY"))) return 0;
    platform::MappedFile file(package.Companion("LAY"));
    std::uint64_t lines = 0;
    bool hasHeader = file.Text().starts_with("***,");
    for (util::LineReader reader(file.Text()); !reader.AtEnd(); ++lines) reader.ReadTextLine();
    CheckLineEnds(file, lines);
    return hasHeader ? lines - 1 : lines;
}

/// The value of a gazetteer line; values may hold commas, the numbers behind them do not.
std::optional<std::string_view> SearchValue(std::string_view line) {
    for (int i = 0; i < 3; ++i) {
        std::size_t comma = line.rfind(',');
        if (comma == std::string_view::npos) return std::nullopt;
        std::string_view number = line.substr(comma + 1);
        if (number.starts_with('-')) number.remove_prefix(1);
        if (number.empty() || number.find_first_not_of("0123456789") != std::string_view::npos)
            return std::nullopt;
        line = line.substr(0, comma);
    }
    return line;
}

std::uint64_t ProveGazetteer(const PackageReader& package) {
    if (!platform::FileExists(package.Companion("GAZ"))) return 0;
    platform::MappedFile file(package.Companion("GAZ"));
    util::LineReader reader(file.Text());
    std::string last;
    while (!reader.AtEnd()) {
        std::string_view line = reader.ReadTextLine();
        auto value = SearchValue(line);
        if (!value) FailAtLine(file, reader.Line(), "not a value and three numbers");
        std::string text = platform::Utf8FromWindows1252(*value);
        if (reader.Line() > 1 && text <= last) FailAtLine(file, reader.Line(), "not in the order of values");
        last = std::move(text);
    }
    CheckLineEnds(file, reader.Line());
    return reader.Line();
}

// --- Mosaics

void Add(PackageCounts& sum, const PackageCounts& counts) {
    sum.packages += 1;
    sum.tiles += counts.tiles;
    sum.lines += counts.lines;
    sum.points += counts.points;
    sum.vertices += counts.vertices;
    sum.areas += counts.areas;
    sum.rings += counts.rings;
    sum.texts += counts.texts;
    sum.layerRecords += counts.layerRecords;
    sum.searchValues += counts.searchValues;
}

}  // namespace

std::string MemberPackage(const PackageReader& mosaic, const IndexEntry& entry) {
    std::string folder =
        util::JoinPath(util::FolderOf(mosaic.Companion("GRP")), util::BaseNameOf(entry.name));
    return util::JoinPath(folder, entry.name);
}

namespace {

PackageCounts ProveMosaic(const PackageReader& mosaic) {
    PackageCounts sum;
    Box box = unsetBox;
    for (const IndexEntry& entry : mosaic.Entries()) {
        if (entry.kind != member::package || util::FileNameOf(entry.name) != entry.name)
            mosaic.FailInIndex(entry.offset, entry.name + " is not the index of a package");
        PackageReader package(MemberPackage(mosaic, entry));
        if (package.IsMosaic()) mosaic.FailInIndex(entry.offset, entry.name + " is a mosaic itself");
        if (!(package.Extents() == entry.box))
            mosaic.FailInIndex(entry.offset + 48, "the box differs from that of " + entry.name);
        Add(sum, ProvePackage(package));
        box.Widen(entry.box);
    }
    if (!(box == mosaic.Extents())) mosaic.FailInIndex(48, "the box is not that of the packages");
    return sum;
}

}  // namespace

PackageCounts ProvePackage(const PackageReader& package) {
    if (package.IsMosaic()) return ProveMosaic(package);
    PackageCounts counts = Proof(package).Run();
    counts.layerRecords = ProveLayers(package);
    counts.searchValues = ProveGazetteer(package);
    return counts;
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/PackageProof.h"

#include "background/package/ElementReader.h"
#include "background/package/FeatureHeader.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <unordered_map>

namespace vexlator::background {

namespace {

using platform::ReadError;

/// Coordinates are doubles. Sums of steps and means of vertices lose their last digits.
constexpr double floatTolerance = 1e-6, relativeTolerance = 1e-11;
/// Largest difference between a step of a line and its true vertex.
constexpr double stepTolerance = 0.005;

double RoundingAt(double x, double y) {
    return floatTolerance + relativeTolerance * std::max(std::abs(x), std::abs(y));
}

double ToleranceOf(const std::vector<util::PlanePoint>& points) {
    return RoundingAt(points.front().x, points.front().y) +
           stepTolerance * static_cast<double>(points.size());
}

/// Each half of an identifier has eight digits.
constexpr std::int32_t mostOfHalf = 99'999'999;

/// Largest distance between the ends of an outline, in units, before its steps are rounded.
constexpr double closingDistance = 0.01;

bool IsClosed(const std::vector<util::PlanePoint>& points, double tolerance) {
    auto isNear = [&](double a, double b) { return std::abs(a - b) <= closingDistance + tolerance; };
    return isNear(points.front().x, points.back().x) && isNear(points.front().y, points.back().y);
}

bool SameClasses(const ElementHeader& a, const ElementHeader& b) {
    return a.classA == b.classA && a.classB == b.classB && a.classC == b.classC;
}

// --- The text files

[[noreturn]] void FailAtLine(const platform::MappedFile& file, std::uint64_t line,
                             const std::string& reason) {
    throw ReadError(file.Name(), ReadError::AtLine(line), reason);
}

/// Calls visit(line, number) for every line. Each must end in CR LF.
template <typename Visit>
std::uint64_t ForEachLine(const platform::MappedFile& file, Visit visit) {
    std::string_view rest = file.Text();
    std::uint64_t number = 0;
    while (!rest.empty()) {
        ++number;
        std::size_t end = rest.find('\n');
        if (end == std::string_view::npos) FailAtLine(file, number, "the last line has no end");
        std::string_view line = rest.substr(0, end);
        if (line.find('\r') + 1 != line.size() || line.empty())
            FailAtLine(file, number, "the line does not end in CR LF");
        line.remove_suffix(1);
        visit(line, number);
        rest.remove_prefix(end + 1);
    }
    return number;
}

/// Keys of elements, according to the layer file.
struct LayerRecords {
    std::uint64_t count = 0;
    bool hasIdentifiers = false;  ///< features have attributes whose values are keys
};

LayerRecords ProveLayers(const PackageReader& package) {
    LayerRecords records;
    if (!platform::FileExists(package.Companion("LAY"))) return records;
    platform::MappedFile file(package.Companion("LAY"));
    records.count = ForEachLine(file, [&](std::string_view line, std::uint64_t) {
        std::string capitals = platform::UpperAscii(line);
        for (std::string_view name : {"TOID", "FEATURE_ID"})
            if (capitals.find(name) != std::string::npos) records.hasIdentifiers = true;
    });
    if (file.Text().starts_with("***,")) --records.count;
    return records;
}

/// The value in a gazetteer line. Values can contain commas, but the numbers after them cannot.
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
    std::string last;
    return ForEachLine(file, [&](std::string_view line, std::uint64_t number) {
        auto value = SearchValue(line);
        if (!value) FailAtLine(file, number, "not a value and three numbers");
        std::string text = platform::Utf8FromWindows1252(*value);
        if (number > 1 && text <= last) FailAtLine(file, number, "not in the order of values");
        last = std::move(text);
    });
}

// --- The elements

/// The data of a line element that areas need.
struct Ring {
    std::uint64_t offset;
    ElementHeader header;
    Box pointBox, vertexBox;
    double tolerance;
    bool isClosed;
};

/// The proof of one package, file by file.
class Proof {
public:
    explicit Proof(const PackageReader& package) : package_(package) {}

    PackageCounts Run() {
        if (package_.IsImages()) return ProveImages();
        ProveIndex();
        records_ = ProveLayers(package_);
        for (std::string_view letters : {"T", "LR", "A"})
            for (const Tile& tile : package_.Tiles())
                if (letters.find(tile.letter) != std::string_view::npos) ProveTile(tile);
        ProveKeys();
        counts_.tiles = package_.Tiles().size();
        counts_.layerRecords = records_.count;
        counts_.searchValues = ProveGazetteer(package_);
        return counts_;
    }

private:
    [[noreturn]] void Fail(const Tile& tile, std::uint64_t offset, const std::string& reason) const {
        package_.FailInContainer(tile.file->offset + offset, tile.file->name + ": " + reason);
    }

    /// The first element whose key does not lead to a record.
    struct Stray {
        const Tile* tile;
        std::uint64_t offset;
        std::int32_t key;
    };

    PackageCounts ProveImages() const;
    void ProveTile(const Tile& tile);
    void NoteKeys(const Tile& tile, const Element& element);
    void ProveKeys() const;
    void ProveIndex() const;
    void ProveExtents() const;
    void ProveLines(const Tile& tile);
    void ProveAreas(const Tile& tile);
    void ProveTexts(const Tile& tile);
    void ProveArea(const Tile& tile, const Element& area);
    const Ring& FindRing(const Tile& tile, std::uint64_t offset, const RingReference& reference) const;

    const PackageReader& package_;
    std::unordered_map<std::int32_t, std::vector<Ring>> rings_;  ///< of the "L" files, by tile number
    LayerRecords records_;
    std::optional<Stray> stray_;
    bool isClassified_ = false;           ///< an element has a key or class without a record
    std::set<std::int16_t> textLengths_;  ///< in headers; 0 before the first text
    PackageCounts counts_;
};

void Proof::ProveIndex() const {
    std::map<std::string, const IndexEntry*> byName;
    for (const IndexEntry& entry : package_.Entries()) {
        if (entry.kind != member::tile)
            package_.FailInIndex(entry.offset + 40, "tiles and packages are mixed");
        if (!byName.emplace(entry.name, &entry).second)
            package_.FailInIndex(entry.offset, entry.name + " occurs twice");
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

PackageCounts Proof::ProveImages() const {
    for (std::size_t i = 0; i < package_.Images().size(); ++i)
        if (const IndexEntry& entry = package_.Entries()[i]; !(entry.box == package_.Images()[i].GroundBox()))
            package_.FailInIndex(entry.offset + 48, "the box is not that of " + entry.name);
    ProveExtents();
    PackageCounts counts;
    counts.images = package_.Images().size();
    return counts;
}

/// The index covers its members, or has the box that the .BME file gives it.
void Proof::ProveExtents() const {
    Box box = unsetBox;
    for (const IndexEntry& entry : package_.Entries()) box.Widen(entry.box);
    std::string line = util::ReadFirstLine(package_.Companion("BME"));
    auto field = [&](std::size_t index) { return util::GetCommaNumber(index, line); };
    if (!line.empty()) box = {field(0), field(1), field(2), field(3)};
    if (!(box == package_.Extents())) package_.FailInIndex(48, "the box differs from that of the members");
}

void Proof::ProveTile(const Tile& tile) {
    if (tile.letter == 'T') return ProveTexts(tile);
    if (tile.letter == 'A') return ProveAreas(tile);
    ProveLines(tile);
}

void Proof::NoteKeys(const Tile& tile, const Element& element) {
    const ElementHeader& header = element.header;
    if (header.keyHigh < 0 || header.keyHigh > mostOfHalf || header.keyLow < 0)
        Fail(tile, element.offset + 1, "the keys are not halves of an identifier");
    if (header.keyHigh != 0 || header.classA != FeatureHeader{}.classA) isClassified_ = true;
    std::int64_t key = header.keyLow, most = static_cast<std::int64_t>(records_.count);
    if (!stray_ && key != 0 && key >= most) stray_ = {&tile, element.offset, header.keyLow};
    std::int16_t length = header.length;
    if (!element.IsText() && length != 0 && !textLengths_.contains(length))
        Fail(tile, element.offset + 9, "length " + std::to_string(length) + " is not that of a text");
}

/// In features with identifiers, or classes, the keys come from these.
void Proof::ProveKeys() const {
    if (!stray_ || records_.hasIdentifiers || isClassified_) return;
    if (!platform::FileExists(package_.Companion("LAY")))
        Fail(*stray_->tile, stray_->offset + 5,
             "key " + std::to_string(stray_->key) + ", but the layer file is missing");
    Fail(*stray_->tile, stray_->offset + 5,
         "key " + std::to_string(stray_->key) + ", but the layer file has " +
             util::Counted(records_.count, "record"));
}

void Proof::ProveLines(const Tile& tile) {
    ElementReader reader(package_, tile);
    std::vector<Ring>& rings = rings_[tile.number];
    Box all = Box::Empty();
    double most = 0;
    for (Element line; reader.Next(line);) {
        NoteKeys(tile, line);
        double tolerance = ToleranceOf(line.points);
        if (!tile.header.box.Contains(line.vertexBox, tolerance))
            Fail(tile, line.offset, "the line leaves the box of its file");
        if (tile.letter == 'L')
            rings.push_back({line.offset, line.header, line.pointBox, line.vertexBox, tolerance,
                             IsClosed(line.points, tolerance)});
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
    for (Element text; reader.Next(text); ++counts_.texts) {
        NoteKeys(tile, text);
        textLengths_.insert(std::int16_t{text.header.length});
        if (text.text.height < 1)
            Fail(tile, text.offset + 30, "a text of height " + std::to_string(text.text.height));
        all.Widen(text.text.x, text.text.y);
    }
    if (!(all == tile.header.box)) Fail(tile, 1, "the box differs from that of the texts");
}

/// The box of an "A" file begins with the centre of an outline, which is in the "L" file's box.
void Proof::ProveAreas(const Tile& tile) {
    ElementReader reader(package_, tile);
    const Tile* lines = package_.FindTile(tile.number, 'L');
    if (lines == nullptr) Fail(tile, 0, "there is no file of lines for it");
    Box all = lines->header.box;
    for (Element area; reader.Next(area);) {
        NoteKeys(tile, area);
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
            if (reference.tile != tile.number) Fail(tile, at + 14, "the first ring is in another tile");
            if (!SameClasses(ring.header, area.header)) Fail(tile, at + 10, "the ring has other classes");
            if (ring.header.length != area.header.length)
                Fail(tile, area.offset + 9, "the length differs from that of its ring");
            if (reference.keyHigh != area.header.keyHigh || reference.keyLow != area.header.keyLow)
                Fail(tile, at + 2, "the keys differ from those of the area");
        }
        if (!ring.isClosed) Fail(tile, at + 10, "the ring is not closed");
        points.Widen(ring.pointBox);
        vertices.Widen(ring.vertexBox);
        tolerance = std::max(tolerance, ring.tolerance);
        at += sizeof(RingReference);
    }
    Box box = area.area.box;
    if (!points.Contains(box, tolerance) || !box.Contains(vertices, tolerance))
        Fail(tile, area.offset + 14, "the box differs from that of the rings");
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
        Fail(tile, at + 2, "the keys differ from those of the line");
    return *ring;
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
    sum.images += counts.images;
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
    if (!(box == mosaic.Extents())) mosaic.FailInIndex(48, "the box differs from that of the packages");
    return sum;
}

}  // namespace

PackageCounts ProvePackage(const PackageReader& package) {
    if (package.IsMosaic()) return ProveMosaic(package);
    return Proof(package).Run();
}

}  // namespace vexlator::background

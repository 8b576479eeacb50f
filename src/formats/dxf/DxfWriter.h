// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// DXF as text. The groups and their meanings are those of the published DXF reference for releases 12 to
/// 2018.
namespace vexlator::formats {

/// A release of the format, by the number in its header.
enum class DxfRelease { R12, R2000, R2004, R2007, R2010, R2013, R2018 };
/// The release with that name, as in "2007" or "R12". False for a name that there is none of.
bool FindDxfRelease(std::string_view name, DxfRelease& release);

/// A colour: of the layer, of the insert that shows a block, of the palette, or of 24 bits.
struct DxfColour {
    int index = byLayer;    ///< 1 to 255, or one of the two below; nearest to a colour of 24 bits
    std::int64_t rgb = -1;  ///< 0xRRGGBB; -1: none. Releases before 2004 have the index alone.
    static constexpr int byBlock = 0, byLayer = 256;
};

/// What all entities have.
struct DxfLook {
    std::string_view layer = {}, lineType = {};  ///< "": that of the layer
    DxfColour colour = {};
    int weight = 0;  ///< hundredths of a millimetre, rounded to those that the format has; 0: the layer's
};

struct DxfTableLayer {
    std::string name;
    DxfColour colour;
    bool isFrozen = false;
};
struct DxfLineType {
    std::string name;
    std::vector<double> lengths = {};  ///< dashes above 0 and gaps below; none: a solid line
};

/// What stands before the blocks.
struct DxfHead {
    DxfRelease release = DxfRelease::R2007;
    double minX = 0, minY = 0, maxX = 0, maxY = 0;
    std::vector<DxfTableLayer> layers = {};  ///< layer "0" is added if it is missing
    std::vector<DxfLineType> lineTypes = {};
    std::vector<std::string> textStyles = {};
    std::vector<std::string> blocks = {};
    std::string application = {};  ///< that the values of entities belong to
};

/// Names and values that go with an entity.
using DxfValues = std::span<const std::pair<std::string_view, std::string_view>>;

struct DxfInsert {
    std::string_view block;
    double x = 0, y = 0, z = 0, scaleX = 1, scaleY = 1, rotation = 0;  ///< radians
    double attributeHeight = 1;
    bool showsAttributes = false;
};

struct DxfText {
    std::string_view text, style;
    double x = 0, y = 0, z = 0, height = 1, rotation = 0;  ///< radians
    bool isCentred = false;                                ///< the position is that of the middle of its foot
};

/// Writes a DXF file: the head, Begin- and EndBlock() with their entities for every block, BeginEntities(),
/// the entities, Finish(). Points are in the plane, with one height for all or one for each. Names are
/// changed to what the release allows.
class DxfWriter {
public:
    /// @throws platform::WriteError, like all members
    DxfWriter(platform::OutputFile& file, const DxfHead& head);

    void BeginBlock(std::string_view name);
    void EndBlock();
    void BeginEntities();

    void AddPoint(const DxfLook& look, double x, double y, double z, DxfValues values);
    /// `heights` is empty, or has one for each point.
    void AddPolyline(const DxfLook& look, std::span<const util::PlanePoint> points,
                     std::span<const double> heights, bool isClosed, DxfValues values);
    /// An area of rings without repeated ends; release 12 has none.
    void AddHatch(const DxfLook& look, std::span<const std::span<const util::PlanePoint>> rings);
    /// Its values become attributes that belong to the insert; long ones, and those of several lines, do not.
    void AddInsertWithAttributes(const DxfLook& look, const DxfInsert& insert, DxfValues attributes);
    void AddInsert(const DxfLook& look, const DxfInsert& insert, DxfValues values);
    void AddText(const DxfLook& look, const DxfText& text, DxfValues values);
    void AddCircle(const DxfLook& look, double x, double y, double z, double radius, DxfValues values);
    /// Counter-clockwise, in radians.
    void AddArc(const DxfLook& look, double x, double y, double z, double radius, double start, double end,
                DxfValues values);
    void Finish();

    bool HasHatches() const { return release_ != DxfRelease::R12; }
    /// Values that were cut, because an entity can hold 16 kilobytes of them.
    std::uint64_t ValuesCut() const { return cut_; }

private:
    bool HasClasses() const { return release_ != DxfRelease::R12; }
    void Group(int code, std::string_view value);
    void Group(int code, std::int64_t value);
    void Number(int code, double value);
    void Place(int code, double x, double y, double z);
    void Text(int code, std::string_view text);
    void Name(int code, std::string_view name);
    std::string NextHandle();
    void Class(std::string_view name);
    void BeginEntity(std::string_view type, std::string_view className, const DxfLook& look);
    void Values(DxfValues values);
    void Colour(const DxfColour& colour);
    void InsertBody(const DxfInsert& insert);
    void Attribute(const DxfLook& look, const DxfInsert& insert, std::string_view tag, std::string_view value,
                   double y);
    void WideText(const DxfLook& look, const DxfText& text);

    void WriteHeader(const DxfHead& head);
    void WriteTables(const DxfHead& head);
    void BeginTable(std::string_view name, std::size_t entries);
    void TableEntry(std::string_view table, std::string_view className);
    void WriteLineTypes(const DxfHead& head);
    void WriteLayers(const DxfHead& head);
    void WriteStyles(const DxfHead& head);
    void WriteEmptyTables(const DxfHead& head);
    void WriteBlockRecords(const DxfHead& head);
    void WriteSpace(std::string_view name);

    platform::OutputFile& file_;
    DxfRelease release_;
    std::string application_;
    std::uint64_t handle_ = 0;
    std::uint64_t seedOffset_ = 0;
    std::string tableHandle_, ownerHandle_;
    std::vector<std::pair<std::string, std::string>> records_;  ///< blocks, and the handles of their records
    std::uint64_t cut_ = 0;
};

}  // namespace vexlator::formats

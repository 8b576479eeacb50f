// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <limits>

/// The records of a background package with the layout of its files: little-endian, field after field, no
/// gaps. docs/package-format.md describes them and their relations. Copy fields before passing them to a
/// function that takes a reference, because they are not aligned.
namespace vexlator::background {

/// Limit of the 32-bit offsets in tile files and containers.
constexpr std::uint64_t mostFileBytes = std::numeric_limits<std::int32_t>::max();

#pragma pack(push, 1)

/// Ground units of the drawing.
struct Box {
    double minX, minY, maxX, maxY;

    /// Empty at first: the first point or box replaces it.
    static constexpr Box Empty() {
        constexpr double far = std::numeric_limits<double>::infinity();
        return {far, far, -far, -far};
    }
    static constexpr Box At(double x, double y) { return {x, y, x, y}; }
    void Widen(double x, double y) {
        if (x < minX) minX = x;
        if (y < minY) minY = y;
        if (x > maxX) maxX = x;
        if (y > maxY) maxY = y;
    }
    /// An empty box changes nothing.
    void Widen(const Box& other) {
        if (other.minX < minX) minX = other.minX;
        if (other.minY < minY) minY = other.minY;
        if (other.maxX > maxX) maxX = other.maxX;
        if (other.maxY > maxY) maxY = other.maxY;
    }
    /// The larger of width and height.
    double Size() const {
        double width = maxX - minX, height = maxY - minY;
        return width > height ? width : height;
    }
    bool Contains(const Box& other, double tolerance = 0) const {
        return other.minX >= minX - tolerance && other.minY >= minY - tolerance &&
               other.maxX <= maxX + tolerance && other.maxY <= maxY + tolerance;
    }
    bool operator==(const Box& other) const {
        return minX == other.minX && minY == other.minY && maxX == other.maxX && maxY == other.maxY;
    }
};

/// At the start of every tile file.
struct PmmHeader {
    std::uint8_t formatCode;
    Box box;
    double tileSize;
};
constexpr std::uint8_t pmmFormatCode = 2;

/// At the start of every element of a tile file.
struct ElementHeader {
    std::uint8_t type;
    std::int32_t keyHigh, keyLow;
    std::int16_t length;  ///< length of a text's body; other elements have that of the text before them
    std::uint8_t classA, classB, classC;
};
namespace element {
constexpr std::uint8_t line = 2, text = 3, area = 4, firstAreaPart = 10;
}

/// The body of a line or point: this, then `count` - 1 steps.
struct LineStart {
    std::int16_t count;
    double x, y;
};
/// From one vertex to the next, in hundredths of a unit.
struct Step {
    std::int16_t dx, dy;
};

/// The body of a text: this, then its characters in Windows-1252.
struct TextRecord {
    double x, y;
    std::int16_t height;    ///< tenths of a unit
    std::int16_t rotation;  ///< tenths of a degree
};

/// The body of an area: this, then `rings` ring references.
struct AreaRecord {
    Box box;
    std::int16_t rings;
};
struct RingReference {
    std::int16_t one;
    std::int32_t keyHigh, keyLow;
    std::int32_t offset;  ///< offset of the ring's line element in the "L" file of its tile
    std::int32_t tile;
};

struct GrpIndexRecord {
    char name[40];  ///< UTF-16LE, two zero bytes, then spaces
    std::int16_t kind;
    std::uint8_t reserved[6];
    double minX, minY, minZ, maxX, maxY, maxZ;
};
namespace member {
constexpr std::int16_t header = 0, tile = 5, package = 6, image = 7;
}
constexpr double unsetExtent = 9999999999;
/// The box of an index without members.
constexpr Box unsetBox{unsetExtent, unsetExtent, -unsetExtent, -unsetExtent};

struct BagEntry {
    char name[20];  ///< Windows-1252, a zero byte, then spaces
    std::int32_t offset, length;
};

#pragma pack(pop)

static_assert(sizeof(PmmHeader) == 41 && sizeof(ElementHeader) == 14 && sizeof(LineStart) == 18 &&
              sizeof(Step) == 4 && sizeof(TextRecord) == 20 && sizeof(AreaRecord) == 34 &&
              sizeof(RingReference) == 18 && sizeof(GrpIndexRecord) == 96 && sizeof(BagEntry) == 28);

}  // namespace vexlator::background

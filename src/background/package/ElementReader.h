// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageReader.h"
#include "background/package/Records.h"
#include "util/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::background {

/// One decoded element of a tile file. Members that its type lacks are empty.
struct Element {
    std::uint64_t offset = 0;  ///< offset in its tile file
    ElementHeader header{};
    std::vector<util::PlanePoint> points;  ///< for a line: vertices and the ends of sub-steps
    /// For a line: the box of its points, and the box of those that are certainly vertices. If a long step is
    /// divided into sub-steps of whole units, their ends can be beside the line.
    Box pointBox = Box::Empty(), vertexBox = Box::Empty();
    TextRecord text{};
    std::string characters;  ///< for a text, UTF-8
    AreaRecord area{};
    std::vector<RingReference> rings;

    bool IsLine() const { return header.type == element::line; }
    bool IsText() const { return header.type == element::text; }
    bool IsArea() const { return header.type == element::area || header.type >= element::firstAreaPart; }
};

/// Reads the elements of a tile file in order.
class ElementReader {
public:
    ElementReader(const PackageReader& package, const Tile& tile) : package_(package), tile_(tile) {}
    /// Starts at `offset`, where an element is known to begin.
    ElementReader(const PackageReader& package, const Tile& tile, std::uint64_t offset)
        : package_(package), tile_(tile), at_(offset) {}

    /// False at the end of the file.
    /// @throws ReadError: an element that does not fit in the file, is of a wrong kind for it, or has
    /// impossible values
    bool Next(Element& element);

private:
    template <typename Record>
    Record Take(const char* what);
    [[noreturn]] void Fail(std::uint64_t at, const std::string& reason) const;
    void ReadLine(Element& element);
    void ReadText(Element& element);
    void ReadArea(Element& element);

    const PackageReader& package_;
    const Tile& tile_;
    std::uint64_t at_ = sizeof(PmmHeader);
};

}  // namespace vexlator::background

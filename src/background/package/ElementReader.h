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

/// One element of a tile file, decoded. The members that its type lacks are empty.
struct Element {
    std::uint64_t offset = 0;  ///< in its tile file
    ElementHeader header{};
    std::vector<util::PlanePoint> points;  ///< of a line: vertices and the ends of sub-steps
    /// Of a line: the box of its points, and of those that are certainly vertices. Where a long step is cut
    /// into sub-steps of whole units, their ends may lie beside the line.
    Box pointBox = Box::Empty(), vertexBox = Box::Empty();
    TextRecord text{};
    std::string characters;  ///< of a text, UTF-8
    AreaRecord area{};
    std::vector<RingReference> rings;

    bool IsLine() const { return header.type == element::line; }
    bool IsText() const { return header.type == element::text; }
    bool IsArea() const { return header.type == element::area || header.type >= element::firstAreaPart; }
};

/// Reads the elements of a tile file one after the other.
class ElementReader {
public:
    ElementReader(const PackageReader& package, const Tile& tile) : package_(package), tile_(tile) {}
    /// Starts at an element that is known to begin at `offset`.
    ElementReader(const PackageReader& package, const Tile& tile, std::uint64_t offset)
        : package_(package), tile_(tile), at_(offset) {}

    /// False at the end of the file. @throws ReadError: an element that does not fit in the file, does not
    /// belong into it, or says what cannot be
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

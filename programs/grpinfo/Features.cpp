// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "grpinfo/Features.h"

#include "background/package/PackageProof.h"

#include <iterator>

namespace vexlator::grpinfo {

using namespace background;

void ForEachElement(const PackageReader& package, std::string_view letters,
                    const std::function<void(const PackageReader&, const Tile&, const Element&)>& take) {
    if (package.IsMosaic()) {
        for (const IndexEntry& entry : package.Entries())
            ForEachElement(PackageReader(MemberPackage(package, entry)), letters, take);
        return;
    }
    Element element;
    for (const Tile& tile : package.Tiles()) {
        if (letters.find(tile.letter) == std::string_view::npos) continue;
        for (ElementReader reader(package, tile); reader.Next(element);) take(package, tile, element);
    }
}

std::vector<std::vector<util::PlanePoint>> RingsOf(const PackageReader& package, const Element& area) {
    std::vector<std::vector<util::PlanePoint>> rings;
    Element line;
    for (const RingReference& reference : area.rings) {
        const Tile* tile = package.FindTile(reference.tile, 'L');
        ElementReader reader(package, *tile, static_cast<std::uint64_t>(reference.offset));
        if (reader.Next(line)) rings.push_back(std::move(line.points));
    }
    return rings;
}

Look LookOf(const ElementHeader& header) {
    // Boundaries, height, land, buildings, roads and tracks, water, structures, road network, heritage.
    static constexpr const char* themes[] = {"#9060a0", "#a07040", "#70a050", "#b05030", "#606060",
                                             "#3070c0", "#805090", "#d08020", "#907030"};
    // Codes 0 to 12 of the device's palette; those without a name are not written.
    static constexpr const char* palette[] = {"#000000", "#000000", "#d00000", "#008000", "#0000d0",
                                              "#00a0a0", "#800080", "#000000", "#000000", "#000000",
                                              "#000000", "#c0b000", "#808080"};
    constexpr int thickFlag = 16;
    if (header.classA < std::size(themes)) return {themes[header.classA], false};
    std::size_t code = header.classC % thickFlag;
    return {code < std::size(palette) ? palette[code] : palette[0], (header.classC & thickFlag) != 0};
}

}  // namespace vexlator::grpinfo

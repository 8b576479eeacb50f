// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/package/PackageElements.h"

#include "background/package/PackageProof.h"

#include <iterator>

namespace vexlator::background {

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

void ForEachImage(const PackageReader& package, const std::function<void(const ImageTile&)>& take) {
    if (package.IsMosaic())
        for (const IndexEntry& entry : package.Entries())
            ForEachImage(PackageReader(MemberPackage(package, entry)), take);
    for (const ImageTile& image : package.Images()) take(image);
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

std::string Look::Colour() const {
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4) text += digits[rgb >> shift & 0xF];
    return text;
}

Look LookOf(const ElementHeader& header) {
    static constexpr Look themes[] = {{"Administrative Boundaries", 0x9060a0},
                                      {"Terrain And Height", 0xa07040},
                                      {"Land", 0x70a050},
                                      {"Buildings", 0xb05030},
                                      {"Roads Tracks And Paths", 0x606060},
                                      {"Water", 0x3070c0},
                                      {"Structures", 0x805090},
                                      {"Road Network", 0xd08020},
                                      {"Heritage And Antiquities", 0x907030}};
    // The device's palette; codes without a name are not written, mobile styles have code 1.
    static constexpr Look black{"Black", 0x000000};
    static constexpr Look palette[] = {black,
                                       {.name = "Mobile style", .isMobile = true},
                                       {"Red", 0xd00000},
                                       {"Green", 0x008000},
                                       {"Blue", 0x0000d0},
                                       {"Cyan", 0x00a0a0},
                                       {"Purple", 0x800080},
                                       black,
                                       black,
                                       black,
                                       black,
                                       {"Yellow", 0xc0b000},
                                       {"Gray", 0x808080}};
    constexpr int thickFlag = 16;
    if (header.classA < std::size(themes)) return themes[header.classA];
    std::size_t code = header.classC % thickFlag;
    Look look = code < std::size(palette) ? palette[code] : black;
    look.isThick = (header.classC & thickFlag) != 0;
    return look;
}

}  // namespace vexlator::background

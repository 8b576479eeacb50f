// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background_build/PlainPackage.h"

#include "background/package/ElementReader.h"
#include "background/package/PackageReader.h"
#include "support/TempFolder.h"

#include <cmath>
#include <sstream>

namespace vexlator::test {

using background::Box;
using background::ElementHeader;
using util::PlanePoint;

namespace {

std::string HeaderText(const ElementHeader& header) {
    std::ostringstream text;
    text << int{header.type} << " key " << header.keyHigh << "/" << header.keyLow << " length "
         << header.length << " class " << int{header.classA} << "," << int{header.classB} << ","
         << int{header.classC} << ":";
    return text.str();
}

std::string NumbersText(const std::vector<double>& numbers) {
    std::ostringstream text;
    text << std::fixed;
    text.precision(4);
    for (double number : numbers) text << " " << number + 0.0;
    return text.str();
}

}  // namespace

std::string LineText(const ElementHeader& header, PlanePoint first,
                     const std::vector<background::Step>& steps) {
    std::string text = HeaderText(header) + NumbersText({first.x, first.y});
    for (background::Step step : steps) text += " " + std::to_string(step.dx) + "," + std::to_string(step.dy);
    return text + "\n";
}

std::string TextText(const ElementHeader& header, PlanePoint anchor, int height, int rotation,
                     const std::string& characters) {
    return HeaderText(header) + NumbersText({anchor.x, anchor.y}) + " height " + std::to_string(height) +
           " rotation " + std::to_string((rotation + 3600) % 3600) + " \"" + characters + "\"\n";
}

std::string AreaText(const ElementHeader& header, const Box& box, int rings, int tile) {
    return HeaderText(header) + NumbersText({box.minX, box.minY, box.maxX, box.maxY}) + " rings " +
           std::to_string(rings) + " of tile " + std::to_string(tile) + "\n";
}

std::string TileText(double size) {
    return "tiles of" + NumbersText({size}) + "\n";
}

namespace {

std::string ElementText(const background::Element& element) {
    const ElementHeader& header = element.header;
    if (element.IsText())
        return TextText(header, {element.text.x, element.text.y}, element.text.height, element.text.rotation,
                        element.characters);
    if (element.IsArea())
        return AreaText(header, element.area.box, element.area.rings, element.rings.at(0).tile);
    std::vector<background::Step> steps;
    for (std::size_t i = 1; i < element.points.size(); ++i) {
        PlanePoint from = element.points[i - 1], to = element.points[i];
        steps.push_back({static_cast<std::int16_t>(std::lround((to.x - from.x) * 100)),
                         static_cast<std::int16_t>(std::lround((to.y - from.y) * 100))});
    }
    return LineText(header, element.points.at(0), steps);
}

}  // namespace

PlainPackage ReadBack(const std::string& packageFile) {
    background::PackageReader reader(packageFile);
    PlainPackage package{
        {}, TempFolder::Read(reader.Companion("LAY")), TempFolder::Read(reader.Companion("GAZ"))};
    for (const background::Tile& tile : reader.Tiles()) {
        package.tiles[tile.file->name] = TileText(tile.header.tileSize);
        background::ElementReader elements(reader, tile);
        for (background::Element element; elements.Next(element);)
            package.tiles[tile.file->name] += ElementText(element);
    }
    return package;
}

}  // namespace vexlator::test

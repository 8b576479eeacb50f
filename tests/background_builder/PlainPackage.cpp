// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background_builder/PlainPackage.h"

#include "background/package/ElementReader.h"
#include "background/package/PackageReader.h"
#include "support/TempFolder.h"

#include <cmath>
#include <sstream>

namespace vexlator::test {

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

std::string LineText(const std::vector<PlanePoint>& points) {
    std::string text = NumbersText({points.at(0).x, points.at(0).y});
    for (std::size_t i = 1; i < points.size(); ++i)
        text += " " + std::to_string(std::lround((points[i].x - points[i - 1].x) * 100)) + "," +
                std::to_string(std::lround((points[i].y - points[i - 1].y) * 100));
    return text;
}

std::string ElementText(const background::Element& element) {
    std::string text = HeaderText(element.header);
    if (element.IsText())
        return text + NumbersText({element.text.x, element.text.y}) + " height " +
               std::to_string(element.text.height) + " rotation " +
               std::to_string((element.text.rotation + 3600) % 3600) + " \"" + element.characters + "\"\n";
    if (!element.IsArea()) return text + LineText(element.points) + "\n";
    const background::Box& box = element.area.box;
    return text + NumbersText({box.minX, box.minY, box.maxX, box.maxY}) + " rings " +
           std::to_string(element.area.rings) + " of tile " + std::to_string(element.rings.at(0).tile) + "\n";
}

}  // namespace

PlainPackage ReadBack(const std::string& packageFile) {
    background::PackageReader reader(packageFile);
    PlainPackage package{
        {}, TempFolder::Read(reader.Companion("LAY")), TempFolder::Read(reader.Companion("GAZ"))};
    for (const background::Tile& tile : reader.Tiles()) {
        package.tiles[tile.file->name] = "tiles of" + NumbersText({tile.header.tileSize}) + "\n";
        background::ElementReader elements(reader, tile);
        for (background::Element element; elements.Next(element);)
            package.tiles[tile.file->name] += ElementText(element);
    }
    return package;
}

}  // namespace vexlator::test

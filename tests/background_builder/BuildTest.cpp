// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/frmGRP.h"
#include "background/package/ElementReader.h"
#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"
#include "background_builder/RandomMap.h"
#include "drawing/Vdf.h"
#include "support/ImportOffice.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <iomanip>
#include <map>
#include <numbers>
#include <random>
#include <sstream>
#include <string>
#include <utility>
#include <vector>
#include <xxhash.h>

namespace vexlator::background {
namespace {

/// An installation, a drawing, and the package MAP in the folder "MAP".
struct Office : test::ImportOffice<frmGRP> {
    std::string index = folder / "MAP/MAP.GRP";

    void Build(const std::string& target = "MAP", const std::string& style = "") {
        drawing.saveAs(folder / "area.VDF");
        outcome = frmGRP(run).Start(folder / "area.VDF", folder / target, style);
    }
    PackageCounts Counts() const { return ProvePackage(PackageReader(index)); }
    std::string File(const std::string& extension) const {
        return test::TempFolder::Read(folder / ("MAP/MAP." + extension));
    }
    bool IsTold(const std::string& text) const {
        return std::ranges::any_of(ui.messages,
                                   [&](const auto& each) { return each.find(text) != each.npos; });
    }
    drawing::Entity Polyline(const std::vector<drawing::Point>& points, bool isClosed) {
        drawing::Entity polyline = drawing.addPolyline(points);
        polyline.setClosed(isClosed);
        return polyline;
    }
};

/// An element in one line: positions to a tenth of a millimetre, steps in hundredths.
std::string TextOf(const Element& element) {
    const ElementHeader& header = element.header;
    std::ostringstream text;
    text.precision(4);
    text << std::fixed << int{header.type} << " key " << header.keyHigh << "/" << header.keyLow << " length "
         << header.length << " class " << int{header.classA} << "," << int{header.classB} << ","
         << int{header.classC} << ":";
    if (element.IsText()) {
        text << " " << element.text.x + 0.0 << " " << element.text.y + 0.0 << " height "
             << element.text.height << " rotation " << (element.text.rotation + 3600) % 3600 << " \""
             << element.characters << "\"\n";
        return text.str();
    }
    if (element.IsArea()) {
        const Box& box = element.area.box;
        for (double side : {box.minX, box.minY, box.maxX, box.maxY}) text << " " << side + 0.0;
        text << " rings " << element.area.rings << " of tile " << element.rings.at(0).tile << "\n";
        return text.str();
    }
    const std::vector<util::PlanePoint>& points = element.points;
    text << " " << points.at(0).x + 0.0 << " " << points.at(0).y + 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        text << " " << std::lround((points[i].x - points[i - 1].x) * 100) << ","
             << std::lround((points[i].y - points[i - 1].y) * 100);
    return text.str() + "\n";
}

/// The tiles of a package by name, as text.
std::map<std::string, std::string> TilesOf(const std::string& index) {
    PackageReader package(index);
    std::map<std::string, std::string> tiles;
    for (const Tile& tile : package.Tiles()) {
        std::string& text = tiles[tile.file->name];
        std::ostringstream size;
        size << std::fixed << std::setprecision(4) << tile.header.tileSize + 0.0;
        text = "tiles of " + size.str() + "\n";
        ElementReader elements(package, tile);
        for (Element element; elements.Next(element);) text += TextOf(element);
    }
    return tiles;
}

/// Long texts that are not part of a package end a chunk of the drawing's file.
void EndChunksWithin(drawing::Drawing& drawing) {
    for (std::size_t i = 0; i < drawing.entityCount(); i += 40)
        drawing.entityAt(i).setHyperlink(std::string(drawing::vdf::bytesPerChunk, 'x'));
}

/// A package of a random drawing under random settings, as text.
std::string BuildRandomly(unsigned seed) {
    std::mt19937 random(seed);
    test::RandomMap map([&](unsigned limit) { return static_cast<unsigned>(random() % limit); });
    Office office;
    map.Fill(office.drawing, office.folder, seed % 20 == 0 ? 0 : 20 + seed % 200);
    if (map.OneIn(4)) EndChunksWithin(office.drawing);
    std::string keepSymbols = map.OneIn(3) ? "1" : "0", fullPolygons = map.OneIn(3) ? "1" : "0";
    std::string mobileStyles = office.folder.Write("mobile.txt", "Hedge=S,1\r\nWALL=A,2\r\nfield=P\r\n");
    office.Ini("[GRP]\r\nDONTEXPLODE=" + keepSymbols + "\r\nGENFULLPOLYS=" + fullPolygons +
               "\r\nAttributeList=" + map.AttributeList() + "\r\n[MOBILESTYLING]\r\nFILE=" + mobileStyles +
               "\r\n");
    std::string style;
    if (!map.OneIn(3)) {
        // The extension TXT means a style without rows.
        style = office.folder / (map.OneIn(4) ? "style.TXT" : "style.BSF");
        SaveBackgroundStyle(style, map.Style(), false);
    }
    office.Build("MAP", style);
    EXPECT_NO_THROW(office.Counts());
    std::string text = office.File("LAY") + office.File("GAZ");
    for (const auto& [name, elements] : TilesOf(office.index)) text += name + "\n" + elements;
    return text;
}

/// Packages stay on devices for years, so the package of a drawing must change only on purpose. The digests
/// were taken when a second builder, made from the rules alone, gave the same packages. Take them anew for an
/// intended change.
TEST(Build, RandomDrawingsBecomeWhatTheyAlwaysDid) {
    constexpr unsigned seedsEach = 15;
    const std::uint64_t digests[] = {
        0xecf6476987ad3629, 0x13bf75e7647e9b6f, 0xecf678caa50dc40c, 0xd41c1919640a5eea, 0xda1242a9b60af96e,
        0x9ec7d70a2f0ce35a, 0x5c7703740a30cefe, 0xb53320ac2fe88311, 0x7753c5fdb88a029f, 0x67925f9db39f81c9};
    unsigned seed = 0;
    for (std::uint64_t digest : digests) {
        std::string texts;
        for (unsigned i = 0; i < seedsEach; ++i) texts += BuildRandomly(++seed);
        EXPECT_EQ(XXH3_64bits(texts.data(), texts.size()), digest) << "of seeds up to " << seed;
    }
}

TEST(Build, VerticesOfLongLinesAndCurves) {
    const double around = 2 * std::numbers::pi;
    struct Case {
        const char* what;
        std::function<void(Office&)> add;
        std::uint64_t vertices;
    };
    auto arc = [](double radius, double from, double to) {
        return [=](Office& office) { office.drawing.addArc({50, 50}, radius, from, to); };
    };
    auto circle = [](double radius) {
        return [=](Office& office) { office.drawing.addCircle({50, 50}, radius); };
    };
    auto line = [](std::size_t count) {
        return [=](Office& office) { office.Polyline(std::vector<drawing::Point>(count, {5, 5}), false); };
    };
    const Case cases[] = {
        {"circle of circumference 10, led back", circle(10 / around), 41},
        {"circle too small for a vertex", circle(.039), 21},
        {"half of a circle", arc(10 / around, 1, 1 + around / 2), 20},
        {"arc over angle 0", arc(40 / around, 6, 6.5 - around), 12},
        {"16,000 vertices", line(16000), 16000},
        {"16,001 vertices", line(16001), 8002},
        {"no vertex", line(0), 0},
    };
    for (const Case& each : cases) {
        Office office;
        each.add(office);
        office.Build();
        EXPECT_EQ(office.Counts().vertices, each.vertices) << each.what;
    }
}

TEST(Build, InfoFileAsksForAreas) {
    for (const char* name : {"area.VDF.info", "area.info"}) {
        Office office;
        office.Polyline({{5, 5}, {9, 5}, {9, 9}}, true);
        office.Polyline({{5, 5}, {9, 5}, {9, 9}}, false);
        office.folder.Write(name, "");
        office.Build();
        EXPECT_EQ(office.Counts().areas, 0U);
        office.folder.Write(name, "x");
        office.Build();
        EXPECT_EQ(office.Counts().areas, 1U);
    }
}

TEST(Build, SymbolInASymbolThatIsScaledUnevenly) {
    Office office;
    const double quarter = std::numbers::pi / 2;
    drawing::Drawing inner, outer;
    inner.addLine({0, 0}, {3, 0});
    inner.saveAs(office.folder / "INNER.VDF");
    outer.addInsert({10, 0}, "INNER", 1, 1, quarter);
    outer.saveAs(office.folder / "OUTER.VDF");
    for (const char* name : {"INNER", "OUTER"})
        office.drawing.addBlock({name, test::TempFolder::Read(office.folder / (std::string(name) + ".VDF"))});
    office.drawing.addInsert({100, 100}, "OUTER", 2, 1, quarter);
    office.Build();
    std::string lines = TilesOf(office.index)["0L.PMM"];
    EXPECT_NE(lines.find(" 100.0000 120.0000 -300,0\n"), lines.npos) << lines;
}

/// Symbols that contain themselves, once and many times, end.
TEST(Build, SymbolsThatHoldThemselves) {
    Office office;
    drawing::Drawing symbol;
    symbol.addPoint({1, 1});
    for (int i = 0; i < 2; ++i) symbol.addInsert({}, "SELF", 1, 1, 0);
    symbol.saveAs(office.folder / "SELF.VDF");
    office.drawing.addBlock({"SELF", test::TempFolder::Read(office.folder / "SELF.VDF")});
    office.drawing.addInsert({5, 5}, "SELF", 1, 1, 0);
    office.Build();
    EXPECT_EQ(office.Counts().points, (1U << 17) - 1);
    EXPECT_TRUE(office.IsTold("too deep"));
}

TEST(Build, TargetIsAFolderOrAnIndex) {
    Office office;
    office.drawing.addPoint({5, 5});
    std::filesystem::create_directory(office.folder / "v1.2");
    const std::pair<const char*, const char*> cases[] = {
        {"MAP", "MAP/MAP.GRP"}, {"maps/x.GRP", "maps/x.GRP"}, {"v1.2", "v1.2/v1.2.GRP"}};
    for (const auto& [target, index] : cases) {
        office.Build(target);
        EXPECT_EQ(ProvePackage(PackageReader(office.folder / index)).points, 1U) << target;
        EXPECT_EQ(office.outcome.features, 1U);
    }
}

TEST(Build, ADrawingDamagedFarInsideLeavesThePackage) {
    Office office;
    for (int i = 0; i < 100; ++i) office.drawing.addPoint({5, 5});
    office.Build();
    EndChunksWithin(office.drawing);
    office.drawing.saveAs(office.folder / "area.VDF");
    std::string bytes = test::TempFolder::Read(office.folder / "area.VDF");
    bytes[bytes.size() - drawing::vdf::bytesPerChunk] ^= 1;
    office.folder.Write("area.VDF", bytes);
    try {
        frmGRP(office.run).Start(office.folder / "area.VDF", office.folder / "MAP", "");
        FAIL();
    } catch (const platform::ReadError& error) {
        EXPECT_NE(std::string(error.what()).find("area.VDF: chunk 3"), std::string::npos) << error.what();
    }
    EXPECT_EQ(office.Counts().points, 100U);
}

}  // namespace
}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"
#include "background/package/PackageWriter.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::test {

using Points = std::vector<util::PlanePoint>;

/// Numbers in the form of the files.
template <typename T>
std::string Bytes(T value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}
inline std::string I16(int value) {
    return Bytes(static_cast<std::int16_t>(value));
}
inline std::string I32(int value) {
    return Bytes(static_cast<std::int32_t>(value));
}
template <typename T>
T Number(std::string_view bytes, std::size_t offset) {
    T value{};
    std::memcpy(&value, bytes.substr(offset, sizeof value).data(), sizeof value);
    return value;
}

/// A member of a container, found by the directory; "" if it is missing.
inline std::string Member(std::string_view bag, std::string_view name) {
    std::size_t directory = bag.empty() ? 0 : static_cast<std::size_t>(Number<std::int32_t>(bag, 20));
    std::string wanted(name);
    wanted += '\0';
    wanted.resize(20, ' ');
    for (std::size_t at = 0; at < directory; at += 28)
        if (bag.substr(at, 20) == wanted)
            return std::string(bag.substr(static_cast<std::size_t>(Number<std::int32_t>(bag, at + 20)),
                                          static_cast<std::size_t>(Number<std::int32_t>(bag, at + 24))));
    return "";
}

/// One package in its own folder.
struct Build {
    TempFolder folder;
    TestUi ui;
    std::string file = folder / "MAP.GRP";
    background::PackageWriter writer;
    explicit Build(std::size_t memory = background::PackageWriter::usualMemory) : writer(file, ui, memory) {}

    std::string Read(std::string_view extension) const {
        return TempFolder::Read(folder / ("MAP." + std::string(extension)));
    }
    std::string TileFile(std::string_view name) const { return Member(Read("BAG"), name); }
    background::PackageCounts Prove() const {
        return background::ProvePackage(background::PackageReader(file));
    }
};

/// A small area with a name and a point, as in docs/package-format.md.
inline void WriteExample(background::PackageWriter& writer) {
    writer.Feature() = {10000, 41355, 3, 4, 0};
    Points house = {{523450, 181230}, {523460, 181230}, {523460, 181240.5}, {523450, 181230}};
    writer.WriteLineElement(house);
    writer.WriteAreaRing();
    writer.WriteTextElement({{523451, 181231}, 2.5, 0, -1}, "Mill");
    writer.Feature() = {0, 7, 255, 0, 2};
    writer.WriteLineElement(Points{{523470, 181240}});
    writer.Layers().AddLayer("HOUSE");
    writer.Search().Add("Mill", {523450, 181230, 523460, 181240.5});
    writer.Commit();
}

/// Lines of all lengths, points, texts, areas, holes and parts.
inline void WriteRandom(background::PackageWriter& writer, unsigned seed, int features) {
    std::mt19937 random(seed);
    auto below = [&](double limit) { return std::uniform_real_distribution<double>(0, limit)(random); };
    auto whole = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int i = 0; i < features; ++i) {
        writer.Feature() = {whole(1000), i, static_cast<std::uint8_t>(whole(3) ? 255 : whole(9)),
                            static_cast<std::uint8_t>(whole(32)), static_cast<std::uint8_t>(whole(64))};
        double x = 2 + below(20000), y = 2 + below(20000), spread = whole(10) ? 60 : 90000;
        Points points;
        for (int count = 1 + whole(20); count > 0; --count)
            points.push_back({x + below(spread), y + below(spread)});
        bool isHole = whole(5) == 0, isArea = whole(2) == 0;
        if (isArea) points.push_back(points.front());
        if (!writer.WriteLineElement(points, isHole)) continue;
        using Ring = background::PackageWriter::AreaRing;
        if (isArea) writer.WriteAreaRing(isHole ? Ring::JoinsArea : Ring::StartsArea, whole(3));
        if (whole(4) == 0)
            writer.WriteTextElement({{x, y}, below(5), below(6), whole(10)}, std::string(i % 30, 'a'));
    }
    writer.Commit();
}

}  // namespace vexlator::test

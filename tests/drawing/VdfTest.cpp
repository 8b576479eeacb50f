// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "drawing/Drawing.h"
#include "drawing/DrawingFile.h"
#include "drawing/DrawingSink.h"
#include "drawing/Vdf.h"
#include "support/Errors.h"
#include "support/RandomDrawing.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>
#include <vector>
#include <xxhash.h>

namespace vexlator::drawing {
namespace {

using test::TempFolder;

/// Erased entities are not included.
std::string DescribeEntities(Drawing& drawing) {
    std::string text;
    drawing.forEach([&](Entity entity) {
        const Shape& shape = entity.shape();
        text += entity.handle() + "|" + std::string(entity.kind()) + "|" + entity.layerName() + "|" +
                std::to_string(entity.style().colour) + "|" + shape.name + "|" +
                std::to_string(shape.rotation) + "|" + std::to_string(shape.size) + "|" +
                std::string(entity.text()) + "|" + std::string(entity.label()) + "|" +
                std::string(entity.hyperlink()) + "|" + std::to_string(entity.isClosed()) +
                std::to_string(entity.isFilled());
        for (std::size_t i = 0; i < entity.vertexCount(); ++i) {
            Point p = entity.vertex(i);
            text += " " + std::to_string(p.x) + "," + std::to_string(p.y) + "," + std::to_string(p.z);
        }
        for (std::size_t i = 0; i < entity.xproperties().count(); ++i)
            text += " " + std::string(entity.xproperties().name(i)) + "=" +
                    std::string(entity.xproperties().item(i).value());
        text += "\n";
    });
    return text;
}

/// The complete contents of a drawing, as text.
std::string Describe(Drawing& drawing) {
    std::string text = drawing.activeLayerName() + "\n";
    for (const auto& [name, value] : drawing.properties()) text += name + "=" + value + "\n";
    for (const Layer& layer : drawing.layers())
        text += layer.name + "/" + std::to_string(layer.frozen) + "/" + std::to_string(layer.colour) + "\n";
    for (const Block& block : drawing.blocks()) text += block.name + "/" + block.content + "\n";
    return text + DescribeEntities(drawing);
}

TEST(Vdf, WhatIsSavedIsOpened) {
    TempFolder folder;
    for (unsigned seed = 1; seed <= 20; ++seed) {
        Drawing drawing;
        test::FillRandomly(drawing, seed, 200);
        drawing.addBlock({"symbol", std::string("bytes\0 of it", 12)});
        drawing.findLayer("LAYER1")->frozen = true;
        drawing.saveAs(folder / "a.VDF");
        Drawing again;
        again.addPoint({1, 1, 1});  // open() replaces the contents
        again.open(folder / "A.vdf");
        EXPECT_EQ(Describe(again), Describe(drawing)) << "seed " << seed;
        EXPECT_FALSE(again.findByHandle(again.addPoint({}).handle() + "0"));
    }
}

TEST(Vdf, EveryPassOverAFileGivesTheWholeDrawing) {
    TempFolder folder;
    Drawing drawing;
    test::FillRandomly(drawing, 3, 200);
    for (std::size_t i = 0; i < drawing.entityCount(); i += 40)
        drawing.entityAt(i).setHyperlink(std::string(vdf::bytesPerChunk, 'x'));
    drawing.saveAs(folder / "a.VDF");
    DrawingFile file(folder / "a.VDF");
    EXPECT_EQ(file.EntityCount(), drawing.entityCount());
    EXPECT_EQ(file.Extents(), drawing.extents());
    const std::string whole = DescribeEntities(drawing),
                      last = drawing.entityAt(drawing.entityCount() - 1).handle();
    EXPECT_TRUE(file.FindFirst([&](const Entity& entity) { return entity.handle() == last; }));
    for (int pass = 0; pass < 2; ++pass) {
        std::string text;
        std::size_t chunks = 0;
        file.ForEachChunk([&](Drawing& chunk) {
            text += DescribeEntities(chunk);
            std::size_t onLayers = 0;
            for (const Layer& layer : chunk.layers()) onLayers += chunk.selectLayer(layer.name).count();
            EXPECT_EQ(onLayers, chunk.entityCount());
            chunk.entityAt(0).setLayerName("NEW " + std::to_string(++chunks));
        });
        EXPECT_EQ(text, whole);
        EXPECT_GE(chunks, 5U);
    }
    EXPECT_TRUE(file.Current().findLayer("NEW 5"));
}

TEST(Vdf, ADrawingIsWrittenWhileItIsMade) {
    TempFolder folder;
    folder.Write("a.VDF", "old");
    Drawing expected;
    DrawingSink output;
    output.SetPath(folder / "a.VDF");
    Drawing& drawing = output.Drawing();
    const std::vector<std::string> names{"ID", "NAME"};
    std::size_t most = 0;
    for (int i = 0; i < 70000; ++i) {
        for (Drawing* each : {&expected, &drawing}) {
            each->setActiveLayer("L" + std::to_string(i / 30000));
            each->addPolyline(
                std::vector<Point>(static_cast<std::size_t>(i % 3), {double(i), 1, i / 69000.}));
            each->beginValues(each->attributeSet(names));
            each->appendValue(std::to_string(i));
            each->appendValue(std::string(static_cast<std::size_t>(i % 50), 'n'));
        }
        most = std::max(most, drawing.entityCount());
        output.FeatureDone();
    }
    EXPECT_LE(most, vdf::entitiesPerChunk);
    EXPECT_EQ(TempFolder::Read(folder / "a.VDF"), "old");
    output.Commit();
    Drawing again;
    again.open(folder / "a.VDF");
    EXPECT_TRUE(Describe(again) == Describe(expected));
}

/// Bytes aligned to 8, as in a memory map.
struct Aligned {
    explicit Aligned(const std::string& bytes) : storage((bytes.size() + 7) / 8), size(bytes.size()) {
        if (!bytes.empty()) std::memcpy(storage.data(), bytes.data(), size);
    }
    std::span<const std::byte> Bytes() const { return std::as_bytes(std::span(storage)).first(size); }
    std::vector<std::uint64_t> storage;
    std::size_t size;
};

TEST(Vdf, EveryCutAndEveryChangedByteIsNoticed) {
    TempFolder folder;
    Drawing drawing;
    test::FillRandomly(drawing, 7, 20);
    drawing.saveAs(folder / "a.VDF");
    const std::string whole = TempFolder::Read(folder / "a.VDF");
    for (std::size_t size = 0; size < whole.size(); ++size) {
        Drawing cut;
        EXPECT_THROW(ReadVdf(Aligned(whole.substr(0, size)).Bytes(), cut), platform::ReadError) << size;
    }
    for (std::size_t i = 0; i < whole.size(); ++i) {
        std::string bytes = whole;
        bytes[i] = static_cast<char>(bytes[i] ^ 0x41);
        Drawing damaged;
        EXPECT_THROW(ReadVdf(Aligned(bytes).Bytes(), damaged), platform::ReadError) << i;
    }
}

TEST(Vdf, RightChecksumsHideNoDamage) {
    using namespace std::string_literals;
    TempFolder folder;
    Drawing drawing;
    for (std::size_t count : {3, 9}) drawing.addPolyline(std::vector<Point>(count, {1, 2, 3}));
    drawing.setHandle(drawing.entityAt(0), "70");
    drawing.saveAs(folder / "a.VDF");
    const struct {
        std::string bytes, damaged, reason;
    } cases[] = {
        {"\3\0\0\0\11"s, "\3\0\0\0\10"s, "chunk 1: vertices or texts are left over"},
        {"\x70\0\0\0\0\0\0\0\2"s, "\2\0\0\0\0\0\0\0\2"s, "index: two entities have the same handle"}};
    for (const auto& [bytes, damaged, reason] : cases) {
        std::string file = TempFolder::Read(folder / "a.VDF");
        file.replace(file.find(bytes), bytes.size(), damaged);
        std::uint64_t size = 0;
        std::memcpy(&size, file.data() + vdf::headerSize, sizeof size);
        std::uint64_t sum = XXH3_64bits(file.data() + vdf::headerSize + vdf::frameSize, size);
        std::memcpy(file.data() + vdf::headerSize + sizeof size, &sum, sizeof sum);
        std::string path = folder.Write("b.VDF", file);
        EXPECT_EQ(test::ErrorOf([&] { Drawing().open(path); }), path + ": " + reason);
    }
}

}  // namespace
}  // namespace vexlator::drawing

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/csv/frmCSV.h"
#include "import/csv/frmFromCSV.h"
#include "support/RoundTrip.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <gtest/gtest.h>

namespace vexlator {
namespace {

using drawing::Entity;
using drawing::Kind;

/// What is left of a value: a quoted one loses its quotes, its commas become ";", and its tabs blanks where
/// tabs separate.
std::string KeptValue(std::string_view value, bool tabs) {
    std::string text(value);
    bool quoted = text.find_first_of(tabs ? "\"\r\n\t" : "\"\r\n,") != std::string::npos;
    if (!quoted) return text;
    text = util::ReplaceAll(util::ReplaceAll(text, "\"", ""), ",", ";");
    return tabs ? util::ReplaceAll(text, "\t", " ") : text;
}

/// What a table of points keeps: points and symbols as symbols, with x and y, the values in order, under the
/// names of the layer's first entity that has most of them, and what the export says of each: its layer,
/// which is the key here, its geometry and its height. Nothing of other kinds.
std::string Kept(Entity entity, Entity first, bool tabs) {
    if (entity.kindCode() != Kind::Point && entity.kindCode() != Kind::Insert) return "";
    const std::string& layer = entity.layerName();
    std::string text = layer + " VDINSERT" + test::PlaceText(entity.position());
    text += " | Feature=" + layer + " | Geometry=Point";
    for (std::size_t i = 0; i < entity.xproperties().count(); ++i)
        text += " | " + std::string(first.xproperties().name(i)) + "=" +
                KeptValue(entity.xproperties().item(i).value(), tabs);
    return text + " | Z=" + util::FormatFixed(entity.position().z, 3) + "\n";
}

/// Coordinates stand behind the values, so that they have columns of their own only where all entities of a
/// layer have as many values. Polylines have more of them than a table of points can say.
void MakeTablesOfPoints(drawing::Drawing& drawing) {
    drawing.forEach([](Entity entity) {
        if (entity.kindCode() == Kind::Polyline) return entity.erase();
        for (std::size_t i = entity.xproperties().count(); i < 3; ++i)
            entity.xproperties().add("MORE" + std::to_string(i), entity.text());
    });
}

TEST(CsvRoundTrip, WhatWasExportedComesBack) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        bool tabs = seed % 2 == 0;
        test::RoundTrip<exporter::frmCSV, importer::frmFromCSV> run(seed);
        MakeTablesOfPoints(run.source);
        std::string separator = tabs ? "Separator=TAB\n" : "";
        run.Ini("[CSV]\nSepFiles=1\nCoords=0\nMultiXYZ=1\nQuote=1\nBOM=1\n" + separator +
                "[CSVIN]\nKey=Feature\nEast=X\nNorth=Y\n" + separator);
        std::string kept = run.Kept([&](Entity entity, Entity first) { return Kept(entity, first, tabs); });
        ASSERT_EQ(run.ThereAndBack("CSV", 0), kept) << "seed " << seed;
        EXPECT_TRUE(run.ui.messages.empty()) << run.ui.messages[0];
    }
}

}  // namespace
}  // namespace vexlator

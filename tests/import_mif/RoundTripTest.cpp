// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/mif/frmMID.h"
#include "import/mif/frmFromMID.h"
#include "support/RoundTrip.h"
#include "util/Text.h"

#include <algorithm>
#include <gtest/gtest.h>

namespace vexlator {
namespace {

using drawing::Entity;
using drawing::Kind;

/// What is left of a value: a quoted one loses its quotes, and its commas become "/".
std::string KeptValue(std::string_view value) {
    std::string text(value);
    if (text.find_first_of("\"\r\n") == std::string::npos && text.find(',') == std::string::npos) return text;
    return util::ReplaceAll(util::ReplaceAll(text, "\"", ""), ",", "/");
}

/// What MIF/MID keeps: points, symbols and circles as symbols, polylines as polylines that repeat their first
/// vertex when they were closed; x and y; the values of as many attributes as the layer's first entity has,
/// under the names that it gives them. Nothing of other kinds.
std::string Kept(Entity entity, Entity first) {
    Kind kind = entity.kindCode();
    bool line = kind == Kind::Polyline;
    if (!line && kind != Kind::Point && kind != Kind::Insert && kind != Kind::Circle) return "";
    std::string text =
        entity.layerName() + (line ? " VDPOLYLINE" : " VDINSERT" + test::PlaceText(entity.position()));
    for (std::size_t i = 0; line && i < entity.vertexCount(); ++i) text += test::PlaceText(entity.vertex(i));
    if (line && entity.isClosed() && entity.vertexCount() > 0) text += test::PlaceText(entity.vertex(0));
    drawing::XProperties names = first.xproperties(), values = entity.xproperties();
    for (std::size_t i = 0; i < std::max<std::size_t>(names.count(), 1); ++i)
        text += " | " + std::string(names.count() > 0 ? names.name(i) : "HANDLE") + "=" +
                (i < values.count() ? KeptValue(values.item(i).value()) : "");
    return text + "\n";
}

TEST(MifRoundTrip, WhatWasExportedComesBack) {
    for (unsigned seed = 1; seed <= 20; ++seed) {
        test::RoundTrip<exporter::frmMID, importer::frmFromMID> run(seed);
        ASSERT_EQ(run.ThereAndBack("MID"), run.Kept(Kept)) << "seed " << seed;
        EXPECT_TRUE(run.ui.messages.empty()) << run.ui.messages[0];
    }
}

}  // namespace
}  // namespace vexlator

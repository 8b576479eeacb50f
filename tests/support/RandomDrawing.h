// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"

#include <iterator>
#include <random>
#include <string>

namespace vexlator::test {

/// A drawing with entities of every kind in random order, on several layers, some erased, with odd texts.
inline void FillRandomly(drawing::Drawing& drawing, unsigned seed, int entities) {
    std::mt19937 random(seed);
    auto number = [&](std::size_t below) { return static_cast<int>(random() % below); };
    auto place = [&] {
        return drawing::Point{number(700000) / 10.0, number(1300000) / 10.0,
                              number(4) == 0 ? number(900) / 10.0 : 0};
    };
    static const std::string texts[] = {"",
                                        "plain",
                                        "a,b;\"c\"",
                                        "caf\xC3\xA9",
                                        "\xE2\x82\xAC 5",
                                        "\xD0\x96",
                                        std::string(300, 'n'),
                                        "two\r\nlines",
                                        "'quoted'",
                                        "\"",
                                        "5\" pipe,",
                                        "\n\"\r",
                                        "\ttabs\t, blanks "};
    auto text = [&] { return texts[number(std::size(texts))]; };
    drawing.properties().emplace_back("Source", "C:\\jobs\\a.job");
    for (int i = 0; i < entities; ++i) {
        drawing.setActiveLayer("LAYER" + std::to_string(number(5)));
        drawing.setActiveColour(static_cast<drawing::Colour>(number(300)));
        drawing::Entity entity = drawing.addEntity(static_cast<drawing::Kind>(number(8)), "VDOTHER");
        if (entity.vertexCount() == 0)
            for (int n = number(6); n > 0; --n) entity.appendVertex(place());
        drawing::Shape shape = entity.shape();
        if (entity.kindCode() != drawing::Kind::Other) shape.name = text();
        shape.rotation = number(7);
        shape.size = number(9);
        entity.setShape(shape);
        entity.setText(text());
        entity.setClosed(number(2) == 0);
        entity.setFilled(number(3) == 0);
        for (int n = number(4); n > 0; --n) entity.xproperties().add("FIELD" + std::to_string(n), text());
        if (number(5) == 0) entity.setLabel(text());
        if (number(5) == 0) entity.setHyperlink(text());
        if (number(10) == 0) entity.erase();
    }
}

}  // namespace vexlator::test

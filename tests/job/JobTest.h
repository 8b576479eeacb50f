// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "support/Installation.h"
#include "util/Numbers.h"

#include <string>
#include <vector>

namespace vexlator::test {

/// The relevant data of an entity in one line, as in "VDINSERT TREE c5 (1,2,0) [TREE] {ID=7;KIND=oak}".
inline std::string EntityText(const drawing::Entity& entity) {
    std::string text = std::string(entity.kind()) + " " + entity.layerName() + " c" +
                       std::to_string(entity.style().colour) + " ";
    auto number = [](double value) { return util::FormatShortest(value); };
    for (std::size_t i = 0; i < entity.vertexCount(); ++i) {
        drawing::Point p = entity.vertex(i);
        text += "(" + number(p.x) + "," + number(p.y) + "," + number(p.z) + ")";
    }
    if (entity.kindCode() == drawing::Kind::Insert) text += " [" + entity.blockName() + "]";
    if (entity.kindCode() == drawing::Kind::Circle) text += " r" + number(entity.radius());
    if (!entity.label().empty()) text += " " + std::string(entity.label());
    if (entity.isClosed()) text += " closed";
    if (entity.isFilled()) text += " filled";
    if (!entity.hyperlink().empty()) text += " ->" + std::string(entity.hyperlink());
    text += " {";
    drawing::XProperties properties = entity.xproperties();
    for (std::size_t i = 0; i < properties.count(); ++i)
        text +=
            (i ? ";" : "") + std::string(properties.name(i)) + "=" + std::string(properties.item(i).value());
    return text + "}";
}

inline std::vector<std::string> EntityTexts(drawing::Drawing& drawing) {
    std::vector<std::string> texts;
    drawing.forEach([&](const drawing::Entity& entity) { texts.push_back(EntityText(entity)); });
    return texts;
}

inline std::vector<std::string> LayerNames(const drawing::Drawing& drawing) {
    std::vector<std::string> names;
    for (const drawing::Layer& layer : drawing.layers()) names.push_back(layer.name);
    return names;
}

/// An installation with a few templates and symbols, and a folder for jobs.
class JobTest : public InstallationTest {
protected:
    JobTest() {
        folder.Write("Symbols/DEFAULT.VDF", "a symbol");
        folder.Write("Symbols/OAK.VDF", "a symbol");
        Template("TREE",
                 "[01,01]ID,C08.00,\n[01,02]KIND<K>,C08.00,\n[01,03]HOTLINK,C20.00=,\n'STYLE=0,OAK,5\n");
        Template(
            "FENCE",
            "[01,01]A,C08.00=x,y\n[01,02] B ,C08.00,\n[01,03]C,C08.00,\n[01,04]short\n'STYLE=0,2,255,\n");
        Template("OPEN", "'STYLE=0,-1,9\n");
        Template("WALL", "[01,01]W,C08.00,\n");
        Template("TR", "TREE=\n");
    }
};

}  // namespace vexlator::test

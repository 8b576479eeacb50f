// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "drawing/Drawing.h"
#include "support/DefaultSymbol.h"
#include "support/Installation.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace vexlator::test {

/// An installation for an import, with a folder for its files, and the imported drawing.
template <typename Form>
struct ImportOffice : Installation {
    ImportOffice() {
        Ini("");
        std::filesystem::create_directories(folder / "ATP");
        WriteDefaultSymbol(folder);
    }

    /// Imports "A.EXT" or "A.EXT|B.EXT"; returns the result of Entities().
    std::string Import(const std::string& files) {
        std::string first = files.substr(0, files.find('|'));
        outcome = Form(run).Start(folder / first, folder.Path(), files.substr(first.size()));
        if (outcome.target.empty()) return "";  // an existing drawing stays
        drawing.open(outcome.target);
        return Entities();
    }
    /// Every entity in one line: layer, kind, vertices, then its attributes.
    std::string Entities() {
        std::ostringstream text;
        text.precision(12);
        drawing.forEach([&](drawing::Entity entity) {
            text << entity.layerName() << " " << entity.kind();
            for (std::size_t i = 0; i < entity.vertexCount(); ++i)
                text << " " << entity.vertex(i).x << "," << entity.vertex(i).y;
            drawing::XProperties attributes = entity.xproperties();
            for (std::size_t i = 0; i < attributes.count(); ++i)
                text << " | " << attributes.name(i) << "=" << attributes.item(i).value();
            text << "\n";
        });
        return text.str();
    }

    config::Outcome outcome;
    drawing::Drawing drawing;
};

}  // namespace vexlator::test

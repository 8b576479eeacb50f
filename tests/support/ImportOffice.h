// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "drawing/Drawing.h"
#include "support/Installation.h"

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

namespace vexlator::test {

/// An installation for an import, with a folder for its files, and the drawing that came of it.
template <typename Form>
struct ImportOffice : Installation {
    ImportOffice() {
        Ini("");
        std::filesystem::create_directories(folder / "Symbols");
        std::filesystem::create_directories(folder / "ATP");
        drawing::Drawing symbol;
        symbol.addCircle({}, 1);
        symbol.saveAs(folder / "Symbols/DEFAULT.VDF");
    }

    /// Imports "A.EXT" or "A.EXT|B.EXT"; returns what Entities() does.
    std::string Import(const std::string& files) {
        std::string first = files.substr(0, files.find('|'));
        outcome = Form(run).Start(folder / first, folder.Path(), files.substr(first.size()));
        if (outcome.target.empty()) return "";  // the drawing that was there stays
        drawing.open(outcome.target);
        return Entities();
    }
    /// Every entity on a line: layer, kind, vertices, then its attributes.
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

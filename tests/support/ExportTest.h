// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "drawing/Drawing.h"
#include "platform/Files.h"
#include "support/Installation.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::test {

using Attributes = std::vector<std::pair<std::string, std::string>>;

/// A drawing, an installation without settings, and the target folder "out" of an export on 5 March 2024.
class ExportTest : public InstallationTest {
protected:
    ExportTest() { std::filesystem::create_directories(folder / "out"); }
    void Template(const std::string& code, const std::string& lines) {
        Installation::Template(code, "[26,09]\r\n" + lines);
    }
    /// Puts later additions on that layer.
    drawing::Drawing& On(std::string_view layer) {
        drawing.setActiveLayer(layer);
        return drawing;
    }
    static void Give(drawing::Entity entity, const Attributes& attributes) {
        for (const auto& [name, value] : attributes) entity.xproperties().add(name, value);
    }
    /// Exports the drawing as Survey.VDF; `more` are further arguments of Start.
    template <typename Form, typename... More>
    config::Outcome Export(More... more) {
        drawing.saveAs(folder / "Survey.VDF");
        return Form(run).Start(folder / "Survey.VDF", folder / "out", more...);
    }
    std::string Out(const std::string& name) const { return TempFolder::Read(folder / ("out/" + name)); }
    std::vector<std::string> OutFiles() const { return platform::ListFiles(folder / "out"); }

    drawing::Drawing drawing;
};

}  // namespace vexlator::test

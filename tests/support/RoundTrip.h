// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "support/ImportOffice.h"
#include "support/RandomDrawing.h"

#include <string>

namespace vexlator::test {

/// " X,Y" as ImportOffice::Entities() has it.
inline std::string PlaceText(const drawing::Point& point) {
    std::ostringstream text;
    text.precision(12);
    text << " " << point.x << "," << point.y;
    return text.str();
}

/// A random drawing that goes out into files named after its layers, and comes back from them.
template <typename Exporter, typename Importer>
struct RoundTrip : ImportOffice<Importer> {
    explicit RoundTrip(unsigned seed) { FillRandomly(source, seed, 150); }

    /// Exports the drawing with further arguments of Start and imports the files; returns the entities.
    template <typename... More>
    std::string ThereAndBack(const std::string& extension, More... more) {
        std::filesystem::create_directories(this->folder / "out");
        source.saveAs(this->folder / "source.VDF");
        Exporter(this->run).Start(this->folder / "source.VDF", this->folder / "out", more...);
        std::string files;
        ForEachLayer([&](const std::string& name, drawing::SelectionSet&) {
            files += (files.empty() ? "out/" : "|") + name + "." + extension;
        });
        return this->Import(files);
    }
    /// `kept(entity, first of its layer)` for every entity, layer after layer.
    template <typename KeptOf>
    std::string Kept(KeptOf kept) {
        std::string text;
        ForEachLayer([&](const std::string&, drawing::SelectionSet& set) {
            for (std::size_t i = 0; i < set.count(); ++i) text += kept(set.item(i), set.item(0));
        });
        return text;
    }

    drawing::Drawing source;

private:
    template <typename Visit>
    void ForEachLayer(Visit visit) {
        for (const drawing::Layer& layer : source.layers()) {
            drawing::SelectionSet set = source.selectLayer(layer.name);
            if (set.count() > 0) visit(layer.name, set);
        }
    }
};

}  // namespace vexlator::test

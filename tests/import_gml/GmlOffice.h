// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/AxisCount.h"
#include "drawing/Drawing.h"
#include "formats/gml/GmlReader.h"
#include "import/gml/GmlEntities.h"
#include "import/gml/GmlFile.h"
#include "import/gml/frmFromGML.h"
#include "support/Installation.h"
#include "util/Numbers.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>
#include <zlib.h>

namespace vexlator::test {

/// The bytes as a gzip file.
inline std::string Gzip(std::string_view bytes) {
    z_stream stream{};
    deflateInit2(&stream, 9, Z_DEFLATED, MAX_WBITS + 16, 8, Z_DEFAULT_STRATEGY);
    std::string packed(deflateBound(&stream, bytes.size()) + 64, '\0');
    std::string source(bytes);
    stream.next_in = reinterpret_cast<Bytef*>(source.data());
    stream.avail_in = static_cast<uInt>(source.size());
    stream.next_out = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_out = static_cast<uInt>(packed.size());
    deflate(&stream, Z_FINISH);
    packed.resize(stream.total_out);
    deflateEnd(&stream);
    return packed;
}

/// An installation with GML files, and the results of their import.
struct GmlOffice : Installation {
    GmlOffice() {
        Ini("");
        drawing::Drawing symbol;
        symbol.addCircle({}, 1);
        for (const char* name : {"Symbols", "ATP"}) std::filesystem::create_directories(folder / name);
        symbol.saveAs(folder / "Symbols/DEFAULT.VDF");
        symbol.saveAs(folder / "Symbols/TREE.VDF");
    }

    config::Outcome Start(const std::string& name, const std::string& list = "") {
        config::Outcome outcome = importer::frmFromGML(run).Start(folder / name, folder.Path(), list);
        imported.open(outcome.target);
        return outcome;
    }
    /// The entities of a file with these bytes, one per line. Messages of earlier files are cleared.
    std::string Import(std::string_view bytes, std::optional<bool> fullRings = std::nullopt) {
        imported.clear();
        ui.messages.clear();
        formats::OpenedGml gml = formats::OpenGml(std::as_bytes(std::span(bytes)),
                                                  {.fullRings = fullRings, .axisCount = coords::AxisCount});
        importer::GmlEntities entities(run, imported);
        entities.BeginFile(gml.lineLayout);
        importer::GmlCounts counts;
        gml.reader->ReadFeatures([&](const formats::GmlFeature& feature) {
            counts.Count(feature);
            entities.Add(feature, gml.reader->Consumed());
        });
        damage = counts.firstDamage;
        return Entities();
    }
    std::string Entities() {
        std::string text;
        imported.forEach([&](drawing::Entity entity) { text += LineOf(entity) + "\n"; });
        return text;
    }
    static std::string LineOf(drawing::Entity entity) {
        std::string line = entity.layerName() + (entity.kind() == "VDINSERT" ? " *" : "");
        if (entity.isClosed() || entity.isFilled()) line += " closed";
        for (const util::PlanePoint& point : entity.planVertices())
            line += " " + util::FormatShortest(point.x) + "," + util::FormatShortest(point.y);
        for (std::size_t i = 0; i < entity.xproperties().count(); ++i)
            line += " " + std::string(entity.xproperties().item(i).name()) + "=" +
                    std::string(entity.xproperties().item(i).value());
        return line;
    }

    std::string damage;  ///< why the first of the left-out features was left out, with its line
    drawing::Drawing imported;
};

}  // namespace vexlator::test

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/xml/frmXML.h"

#include "export/LayerLoop.h"
#include "export/xml/DrawingXmlWriter.h"
#include "formats/drawingxml/DrawingXml.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace vexlator::exporter {

config::Outcome frmXML::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmXML", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    begun.outcome.target = util::JoinPath(targetPath, util::BaseNameOf(drawingPath) + ".XML");
    platform::OutputSet files;
    DrawingXmlWriter writer(files.Add(begun.outcome.target));
    writer.Begin(begun.file->Current());
    std::vector<bool> used(begun.file->Current().layerCount());
    begun.ForEachChunk([&](const drawing::Drawing& chunk) {
        writer.AddEntities(chunk);
        chunk.forEach([&](const drawing::EntityView& entity) { used[entity.layerIndex()] = true; });
        begun.view->Progress(begun.outcome.features += chunk.entityCount(), begun.file->EntityCount());
    });
    writer.End();
    begun.outcome.layers = static_cast<std::uint64_t>(std::ranges::count(used, true));
    files.Add(util::JoinPath(targetPath, formats::drawingxml::schemaFile))
        .Write(formats::drawingxml::Schema());
    files.Commit();
    begun.view->SetLabel("Completed!");
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(begun.outcome.target);
    return begun.outcome;
}

}  // namespace vexlator::exporter

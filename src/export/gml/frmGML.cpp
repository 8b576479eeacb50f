// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/gml/frmGML.h"

#include "coords/DrawingProjection.h"
#include "export/LayerLoop.h"
#include "export/gml/GmlLayer.h"
#include "formats/gml/GmlSchema.h"
#include "formats/gml/GmlWriter.h"
#include "formats/xml/XmlName.h"
#include "platform/OutputSet.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <deque>
#include <string>
#include <vector>

namespace vexlator::exporter {

config::Outcome frmGML::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmGML", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    std::string name = util::BaseNameOf(drawingPath);
    begun.outcome.target = util::JoinPath(targetPath, name + ".GML");
    const formats::GmlDocument document{formats::GmlNamespaceOf(name), name + ".xsd",
                                        coords::DrawingSrsName(run_)};
    if (document.srsName.empty())
        run_.Ui().Report(
            "no srsName: [GPS] TRANSFORMATION does not give a coordinate system with an EPSG code");

    platform::OutputSet files;
    formats::GmlWriter writer(files.Add(begun.outcome.target), document);
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    std::deque<GmlLayer> types;
    formats::XmlNames names(formats::GmlOwnNames());
    for (const ExportLayer& layer : layers)
        types.emplace_back(run_, layer, begun.file->Current(), names.Take(layer.layer.name), writer);
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { types[layer].Write(part); },
        [&](std::size_t layer) { return types[layer].Finish(); });
    writer.Finish();
    std::vector<formats::GmlFeatureType> described;
    for (const GmlLayer& type : types) described.push_back(type.Type());
    formats::WriteGmlSchema(files.Add(util::JoinPath(targetPath, document.schemaFile)),
                            document.targetNamespace, described);
    files.Commit();
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(begun.outcome.target);
    return begun.outcome;
}

}  // namespace vexlator::exporter

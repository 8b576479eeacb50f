// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dbf/frmDBF.h"

#include "drawing/AttributeTemplate.h"
#include "export/LayerLoop.h"
#include "export/dbf/DbfSettings.h"
#include "export/dbf/DbfTables.h"
#include "export/dbf/SurveyTable.h"
#include "platform/OutputSet.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <deque>
#include <string>
#include <vector>

namespace vexlator::exporter {

namespace {

/// Of the layers without entities those that have a template.
EmptyLayers EmptyLayersFor(const config::Run& run, const DbfSettings& settings) {
    if (!settings.forceEmpty) return {};
    return [&run](const drawing::Layer& layer) {
        return util::FileSize(drawing::AtpPathFor(run, layer.name)) > 0;
    };
}

}  // namespace

config::Outcome frmDBF::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmDBF", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    DbfSettings settings = ReadDbfSettings(run_);
    std::string basePath = util::JoinPath(targetPath, util::BaseNameOf(drawingPath));
    if (settings.arbolog)
        WriteSurvey(begun, settings, basePath);
    else
        WriteTables(begun, settings, targetPath);
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(begun.outcome.target);
    return begun.outcome;
}

void frmDBF::WriteTables(BegunExport& begun, const DbfSettings& settings, std::string_view targetPath) {
    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export, EmptyLayersFor(run_, settings));
    std::deque<DbfLayer> tables;
    for (const ExportLayer& layer : layers)
        tables.emplace_back(run_, layer, settings, util::JoinPath(targetPath, layer.fileName), files);
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { tables[layer].Write(part); },
        [&](std::size_t layer) { return tables[layer].Finish(); });
    files.Commit();
}

void frmDBF::WriteSurvey(BegunExport& begun, const DbfSettings& settings, const std::string& basePath) {
    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    if (layers.empty()) return;
    SurveyTable table(run_, layers, settings.suppressNA, basePath, files);
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { table.Write(layer, part); },
        [&](std::size_t layer) { return table.RecordsOf(layer); });
    table.Finish();
    files.Commit();
    begun.outcome.target = basePath + ".DBF";
}

}  // namespace vexlator::exporter

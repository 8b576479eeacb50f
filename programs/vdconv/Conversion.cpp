// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdconv/Conversion.h"

#include "export/dxf/frmDWG.h"
#include "gis/ExportDgn.h"
#include "gis/ExportDrawing.h"
#include "gis/GisFormat.h"
#include "gis/ImportCad.h"
#include "gis/ImportSources.h"
#include "platform/Files.h"
#include "raster/Gdal.h"
#include "util/Paths.h"

namespace vexlator::vdconv {

namespace {

void PrepareFolder(config::Run& run, const std::string& folder) {
    platform::RequireFolder(folder);
    if (std::string told = platform::RemoveLeftovers(folder); !told.empty()) run.Ui().Report(told);
}

config::Outcome ExportDxf(config::Run& run, const Command& command) {
    exporter::BegunExport begun;
    begun.view = run.Ui().ShowForm("vdconv");
    begun.file = std::make_unique<drawing::DrawingFile>(command.drawing);
    begun.outcome.target = util::JoinPath(command.folder, command.name + ".DXF");
    exporter::WriteDxf(run, begun, begun.outcome.target, exporter::FrozenLayers::Kept);
    return begun.outcome;
}

void ConvertCad(config::Run& run, const Command& command, config::ConversionReport& report) {
    if (command.isImport) {
        PrepareFolder(run, util::FolderOf(command.drawing));
        report.outcome = gis::ImportCad(run, command.code, command.sources, command.drawing);
        return;
    }
    if (command.code == "DWG") throw WrongUse("DWG is a closed format that is not written; DXF is");
    PrepareFolder(run, command.folder);
    std::string dgn = util::JoinPath(command.folder, command.name + ".DGN");
    report.outcome =
        command.code == "DXF" ? ExportDxf(run, command) : gis::ExportDgn(run, command.drawing, dgn, report);
}

}  // namespace

void Convert(config::Run& run, const Command& command, config::ConversionReport& report) {
    raster::StartGdal();
    if (gis::IsCadFormat(command.code)) return ConvertCad(run, command, report);
    const gis::GisFormat* format = gis::FindGisFormat(command.code);
    if (!format)
        throw WrongUse("\"" + command.code + "\": no format that is " +
                       (command.isImport ? "read" : "written"));
    PrepareFolder(run, command.isImport ? util::FolderOf(command.drawing) : command.folder);
    if (command.isImport)
        report.outcome = gis::ImportSources(run, *format, command.sources, command.drawing, report);
    else
        report.outcome =
            gis::ExportDrawing(run, *format, command.drawing, command.folder, command.name, report);
}

}  // namespace vexlator::vdconv

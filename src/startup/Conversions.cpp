// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Conversions.h"

#include "background/builder/BuildSettings.h"
#include "background/builder/frmGRP.h"
#include "config/Converter.h"
#include "corporate/handoff/frmESRI.h"
#include "corporate/handoff/frmFromESRI.h"
#include "corporate/handoff/frmFromSWD.h"
#include "corporate/handoff/frmSWD.h"
#include "export/csv/frmCSV.h"
#include "export/dbf/frmDBF.h"
#include "export/dxf/frmDWG.h"
#include "export/environment/frmENV.h"
#include "export/fmo/frmFMO.h"
#include "export/fmo/frmMDB.h"
#include "export/gis/frmGIS.h"
#include "export/gml/frmGML.h"
#include "export/kml/frmKML.h"
#include "export/meter/frmCAW.h"
#include "export/mif/frmMID.h"
#include "export/ov2/frmTom.h"
#include "export/shapefile/frmSHP.h"
#include "export/xls/frmXLS.h"
#include "export/xml/frmXML.h"
#include "import/adt/frmFromADT.h"
#include "import/csv/frmFromCSV.h"
#include "import/fmo/frmFromFMO.h"
#include "import/gis/frmFromGIS.h"
#include "import/gml/frmFromGML.h"
#include "import/job/frmFromJOB.h"
#include "import/meter/frmFromCAW.h"
#include "import/mif/frmFromMID.h"
#include "import/shapefile/frmFromSHP.h"
#include "import/xml/frmFromXML.h"
#include "mapbook/frmPDF.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

namespace vexlator::startup {

namespace {

// A new conversion gets a row below; nothing else has to change. If its operation is not called Start(), or
// takes more arguments than these, it gets a function of its own here.

template <typename Form>
config::Outcome Import(config::Run& run, const ImportCommand& command) {
    return Form(run).Start(command.sourcePath, command.sourceFolder, command.fileList);
}

template <typename Form>
config::Outcome Export(config::Run& run, const ExportCommand& command) {
    return Form(run).Start(command.drawingPath, command.targetPath);
}

template <int asc>
config::Outcome ExportText(config::Run& run, const ExportCommand& command) {
    return exporter::frmCSV(run).Start(command.drawingPath, command.targetPath, asc);
}

/// The command does not name a style, but the settings may.
config::Outcome BuildPackage(config::Run& run, const ExportCommand& command) {
    return background::frmGRP(run).Start(command.drawingPath, command.targetPath,
                                         background::StyleFileOfCommands(run));
}

config::Outcome ImportByConverter(config::Run& run, const ImportCommand& command) {
    return importer::frmFromGIS(run, command.code)
        .Start(command.sourcePath, command.sourceFolder, command.fileList);
}

config::Outcome ExportCad(config::Run& run, const ExportCommand& command) {
    return exporter::frmDWG(run).Start(command.drawingPath, command.targetPath, command.code);
}

config::Outcome ExportByConverter(config::Run& run, const ExportCommand& command) {
    return exporter::frmGIS(run, command.code).Start(command.drawingPath, command.targetPath);
}

config::Outcome ImportTablet(config::Run& run, const ImportCommand& command) {
    std::string fileList;
    return importer::frmFromFMO(run).StartTablet(command.sourcePath, command.sourceFolder, fileList);
}

config::Outcome Restyle(config::Run& run, const ExportCommand& command) {
    return mapbook::frmPDF(run).ReStyle(command.drawingPath, command.targetPath);
}

constexpr std::array importRows{
    ImportRow{"SHP", "shapefiles", "frmFromSHP", Import<importer::frmFromSHP>},
    ImportRow{"MID", "MapInfo interchange files", "frmFromMID", Import<importer::frmFromMID>},
    ImportRow{"MIF", "MapInfo interchange files", "frmFromMID", Import<importer::frmFromMID>},
    ImportRow{"GML", "GML, also compressed", "frmFromGML", Import<importer::frmFromGML>},
    ImportRow{"GZ", "GML, also compressed", "frmFromGML", Import<importer::frmFromGML>},
    ImportRow{"TAB", "MapInfo tables", "frmFromTAB", Import<importer::frmFromTAB>, false,
              config::converterProgram},
    ImportRow{"DXF", "CAD drawings", "frmFromCAD", ImportByConverter, false, config::converterProgram},
    ImportRow{"DGN", "CAD drawings", "frmFromCAD", ImportByConverter, false, config::converterProgram},
    ImportRow{"DWG", "CAD drawings", "frmFromCAD", ImportByConverter, false, config::converterProgram},
    ImportRow{"GPKG", "features for GIS", "frmFromGIS", ImportByConverter, false, config::converterProgram},
    ImportRow{"GEOJSON", "features for GIS", "frmFromGIS", ImportByConverter, false,
              config::converterProgram},
    ImportRow{"FGB", "features for GIS", "frmFromGIS", ImportByConverter, false, config::converterProgram},
    ImportRow{"GDB", "geodatabases", "frmFromESRI", Import<corporate::frmFromESRI>, false, "", true},
    ImportRow{"MXD", "geodatabases", "frmFromESRI", Import<corporate::frmFromESRI>, false, "", true},
    ImportRow{"SWD", "the corporate GIS", "frmFromSWD", Import<corporate::frmFromSWD>, false, "", true},
    ImportRow{"XML", "drawings as XML", "frmFromXML", Import<importer::frmFromXML>},
    ImportRow{"CSV", "tables of points", "frmFromCSV", Import<importer::frmFromCSV>},
    ImportRow{"TXT", "tables of points", "frmFromCSV", Import<importer::frmFromCSV>},
    ImportRow{"PPS", "meter readings", "frmFromCAW", Import<importer::frmFromCAW>},
    ImportRow{"CAW", "meter readings", "frmFromCAW", Import<importer::frmFromCAW>},
    ImportRow{"ADT", "feature records", "frmFromADT", Import<importer::frmFromADT>},
    ImportRow{"FMO", "database tables", "frmFromFMO", Import<importer::frmFromFMO>, true, "", true},
    ImportRow{"TPK", "tablet packages", "frmFromFMO", ImportTablet, false, "", true},
    ImportRow{"JOB", "device jobs", "frmFromJOB", Import<importer::frmFromJOB>, true},
    ImportRow{"PAK", "device jobs", "frmFromJOB", Import<importer::frmFromJOB>, true},
};

constexpr std::array exportRows{
    ExportRow{"SHP", "shapefiles", "frmSHP", Export<exporter::frmSHP>},
    ExportRow{"MID", "MapInfo interchange files", "frmMID", Export<exporter::frmMID>},
    ExportRow{"TAB", "MapInfo tables", "frmTAB", Export<exporter::frmTAB>, false, config::converterProgram},
    ExportRow{"DXF", "CAD drawings", "frmDWG", ExportCad},
    ExportRow{"DGN", "CAD drawings", "frmDWG", ExportCad, false, config::converterProgram},
    ExportRow{"DWG", "not written; use DXF", "frmDWG", ExportCad},
    ExportRow{"GPKG", "features for GIS", "frmGIS", ExportByConverter, false, config::converterProgram},
    ExportRow{"GEOJSON", "features for GIS", "frmGIS", ExportByConverter, false, config::converterProgram},
    ExportRow{"FGB", "features for GIS", "frmGIS", ExportByConverter, false, config::converterProgram},
    ExportRow{"PDB", "the corporate GIS", "frmESRI", Export<corporate::frmESRI>, false, "", true},
    ExportRow{"MXD", "the corporate GIS", "frmESRI", Export<corporate::frmESRI>, false, "", true},
    ExportRow{"SWD", "the corporate GIS", "frmSWD", Export<corporate::frmSWD>, false, "", true},
    ExportRow{"CSV", "tables for spreadsheets", "frmCSV", ExportText<0>},
    ExportRow{"ASC", "tables for programs", "frmCSV", ExportText<1>},
    ExportRow{"KML", "placemarks for globes", "frmKML", Export<exporter::frmKML>},
    ExportRow{"DBF", "attribute tables", "frmDBF", Export<exporter::frmDBF>},
    ExportRow{"GML", "GML for any GIS", "frmGML", Export<exporter::frmGML>},
    ExportRow{"XLS", "workbook", "frmXLS", Export<exporter::frmXLS>},
    ExportRow{"ENV", "pages of a survey", "frmENV", Export<exporter::frmENV>},
    ExportRow{"OV2", "points of interest", "frmTom", Export<exporter::frmTom>},
    ExportRow{"XML", "the whole drawing as XML", "frmXML", Export<exporter::frmXML>},
    ExportRow{"FMO", "database tables", "frmFMO", Export<exporter::frmFMO>, true},
    ExportRow{"MDB", "database of its own", "frmMDB", Export<exporter::frmMDB>},
    ExportRow{"GRP", "background maps", "frmGRP", BuildPackage},
    ExportRow{"PDF", "map books", "frmPDF", Export<mapbook::frmPDF>},
    ExportRow{"STY", "drainage survey layout", "frmPDF", Restyle},
    ExportRow{"CAW", "meter readings", "frmCAW", Export<exporter::frmCAW>},
};

template <typename Row>
const Row* Find(std::span<const Row> rows, std::string_view code) {
    auto row = std::ranges::find(rows, code, &Row::code);
    return row == rows.end() ? nullptr : &*row;
}

/// Calls `visit(codes, words)` for the rows with equal words.
template <typename Row, typename Visit>
void ForEachFormat(std::span<const Row> rows, Visit visit) {
    for (std::size_t i = 0; i < rows.size();) {
        std::string codes(rows[i].code);
        std::string_view words = rows[i].words;
        while (++i < rows.size() && rows[i].words == words) codes.append(" ").append(rows[i].code);
        visit(codes, words);
    }
}

template <typename Row>
std::string ListOf(std::span<const Row> rows) {
    std::string list;
    ForEachFormat(rows, [&](const std::string& codes, std::string_view words) {
        list.append(list.empty() ? "" : ", ").append(codes).append(" (").append(words).append(")");
    });
    return list;
}

/// A line for each entry of the words, below a heading.
template <typename Row>
std::vector<std::string> LinesOf(std::string heading, std::span<const Row> rows) {
    constexpr std::size_t width = 9;
    std::vector<std::string> lines{std::move(heading)};
    ForEachFormat(rows, [&](std::string codes, std::string_view words) {
        codes.resize(std::max(codes.size() + 1, width), ' ');
        lines.push_back("  " + codes + std::string(words));
    });
    return lines;
}

}  // namespace

const ImportRow* Conversions::FindImport(std::string_view code) const {
    return Find(imports, code);
}
const ExportRow* Conversions::FindExport(std::string_view code) const {
    return Find(exports, code);
}
std::string Conversions::ImportList() const {
    return ListOf(imports);
}
std::string Conversions::ExportList() const {
    return ListOf(exports);
}
std::string Conversions::Table() const {
    constexpr std::size_t width = 42;
    std::vector<std::string> left = LinesOf("Imports:", imports), right = LinesOf("Exports:", exports);
    std::string table;
    for (std::size_t i = 0; i < std::max(left.size(), right.size()); ++i) {
        std::string line = i < left.size() ? left[i] : "";
        if (i < right.size()) {
            line.resize(std::max(line.size(), width), ' ');
            line += right[i];
        }
        table.append(line).append("\n");
    }
    return table;
}

Conversions AllConversions() {
    return {importRows, exportRows};
}

}  // namespace vexlator::startup

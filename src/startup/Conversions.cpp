// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Conversions.h"

#include "background/build/frmGRP.h"
#include "export/csv/frmCSV.h"
#include "export/fmo/frmFMO.h"
#include "export/fmo/frmMDB.h"
#include "export/kml/frmKML.h"
#include "export/meter/frmCAW.h"
#include "export/mif/frmMID.h"
#include "export/shapefile/frmSHP.h"
#include "import/csv/frmFromCSV.h"
#include "import/fmo/frmFromFMO.h"
#include "import/gml/frmFromGML.h"
#include "import/job/frmFromJOB.h"
#include "import/mif/frmFromMID.h"
#include "import/shapefile/frmFromSHP.h"

#include <algorithm>
#include <array>
#include <string>

namespace vexlator::startup {

namespace {

// A new conversion gets its call in its row below; nothing else has to change. One whose operation is not
// called Start(), or takes more arguments than these, gets a function of its own here.

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

/// The command names no style; the settings may.
config::Outcome BuildPackage(config::Run& run, const ExportCommand& command) {
    return background::frmGRP(run).Start(command.drawingPath, command.targetPath,
                                         run.ReadIni("GRP", "STYLEFILE"));
}

config::Outcome ImportTablet(config::Run& run, const ImportCommand& command) {
    std::string fileList;
    return importer::frmFromFMO(run).StartTablet(command.sourcePath, command.sourceFolder, fileList);
}

constexpr std::array importRows{
    ImportRow{"MID", "frmFromMID", Import<importer::frmFromMID>},
    ImportRow{"MIF", "frmFromMID", Import<importer::frmFromMID>},
    ImportRow{"SHP", "frmFromSHP", Import<importer::frmFromSHP>},
    ImportRow{"FMO", "frmFromFMO", Import<importer::frmFromFMO>},
    ImportRow{"TPK", "frmFromFMO", ImportTablet},
    ImportRow{"CSV", "frmFromCSV", Import<importer::frmFromCSV>},
    ImportRow{"TAB", "frmFromTAB", nullptr},
    ImportRow{"PPS", "frmFromCAW", nullptr},
    ImportRow{"JOB", "frmFromJOB", Import<importer::frmFromJOB>},
    ImportRow{"PAK", "frmFromJOB", Import<importer::frmFromJOB>},
    ImportRow{"GDB", "frmFromESRI", nullptr},
    ImportRow{"MXD", "frmFromESRI", nullptr},
    ImportRow{"SWD", "frmFromSWD", nullptr},
    ImportRow{"XML", "frmFromXML", nullptr},
    ImportRow{"GML", "frmFromGML", Import<importer::frmFromGML>},
    ImportRow{"GZ", "frmFromGML", Import<importer::frmFromGML>},
    ImportRow{"ADT", "frmFromADT", nullptr},
};

constexpr std::array exportRows{
    ExportRow{"MID", "frmMID", Export<exporter::frmMID>},
    ExportRow{"SHP", "frmSHP", Export<exporter::frmSHP>},
    ExportRow{"DWG", "frmDWG", nullptr},
    ExportRow{"DXF", "frmDWG", nullptr},
    ExportRow{"DGN", "frmDWG", nullptr},
    ExportRow{"GRP", "frmGRP", BuildPackage},
    ExportRow{"CSV", "frmCSV", ExportText<0>},
    ExportRow{"ASC", "frmCSV", ExportText<1>},
    ExportRow{"KML", "frmKML", Export<exporter::frmKML>},
    ExportRow{"DBF", "frmDBF", nullptr},
    ExportRow{"OV2", "frmTom", nullptr},
    ExportRow{"GML", "frmGML", nullptr},
    ExportRow{"XML", "frmXML", nullptr},
    ExportRow{"PDF", "frmPDF", nullptr},
    ExportRow{"STY", "frmPDF", nullptr},
    ExportRow{"TAB", "frmTAB", nullptr},
    ExportRow{"MDB", "frmMDB", Export<exporter::frmMDB>},
    ExportRow{"ENV", "frmENV", nullptr},
    ExportRow{"CAW", "frmCAW", Export<exporter::frmCAW>},
    ExportRow{"XLS", "frmXLS", nullptr},
    ExportRow{"PDB", "frmESRI", nullptr},
    ExportRow{"MXD", "frmESRI", nullptr},
    ExportRow{"SWD", "frmSWD", nullptr},
    ExportRow{.code = "FMO", .form = "frmFMO", .call = Export<exporter::frmFMO>, .intoFmoDirectory = true},
};

template <typename Row>
const Row* Find(std::span<const Row> rows, std::string_view code) {
    auto row = std::ranges::find(rows, code, &Row::code);
    return row == rows.end() ? nullptr : &*row;
}

template <typename Row>
std::string Codes(std::span<const Row> rows) {
    std::string codes;
    for (const Row& row : rows)
        if (row.call) codes.append(codes.empty() ? "" : " ").append(row.code);
    return codes;
}

}  // namespace

const ImportRow* Conversions::FindImport(std::string_view code) const {
    return Find(imports, code);
}
const ExportRow* Conversions::FindExport(std::string_view code) const {
    return Find(exports, code);
}
std::string Conversions::ImportCodes() const {
    return Codes(imports);
}
std::string Conversions::ExportCodes() const {
    return Codes(exports);
}

Conversions AllConversions() {
    return {importRows, exportRows};
}

}  // namespace vexlator::startup

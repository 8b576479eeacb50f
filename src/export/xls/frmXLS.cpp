// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/xls/frmXLS.h"

#include "export/LayerLoop.h"
#include "export/xls/SheetRows.h"
#include "formats/xlsx/XlsxTemplate.h"
#include "formats/xlsx/XlsxWriter.h"
#include "util/Counted.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace vexlator::exporter {

namespace {

struct XlsSettings {
    std::string workbook;
};

using Keys = config::Keys<XlsSettings>;

constexpr config::KeyOf<XlsSettings> keys[] = {
    Keys::Text(
        "XLS", "Template", &XlsSettings::workbook,
        "workbook (.xlsx) that XLS exports fill: its sheets are named like feature codes, the cells of their "
        "first rows like attributes, and rows look like the second one",
        "a new workbook"),
};

/// A template that is named and missing is an error: people would miss their formats.
std::unique_ptr<formats::XlsxRows> NewRows(const config::Run& run, platform::OutputFile& file) {
    std::string path = config::ReadKeys<XlsSettings>(run.Installation(), keys).workbook;
    if (path.empty()) return std::make_unique<formats::XlsxWriter>(file);
    return std::make_unique<formats::XlsxTemplate>(path, file);
}

}  // namespace

config::Outcome frmXLS::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmXLS", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    begun.outcome.target = util::JoinPath(targetPath, util::BaseNameOf(drawingPath) + ".xlsx");
    platform::OutputFile file(begun.outcome.target);
    std::unique_ptr<formats::XlsxRows> writer = NewRows(run_, file);
    WriteSheets(begun, targetPath, *writer);
    writer->Finish();
    if (writer->PlainLinks() > 0)
        run_.Ui().Report(util::Counted(writer->PlainLinks(), "photograph") +
                         " without a link, because a sheet holds no more or no longer links");
    file.Commit();
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(begun.outcome.target);
    return begun.outcome;
}

void frmXLS::WriteSheets(BegunExport& begun, std::string_view targetPath, formats::XlsxRows& writer) {
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    std::deque<SheetRows> sheets;
    for (const ExportLayer& layer : layers)
        sheets.emplace_back(run_, layer, begun.file->Current(), targetPath, writer);
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { sheets[layer].Write(part); },
        [&](std::size_t layer) { return sheets[layer].Finish(); });
}

config::KeyList XlsKeys() {
    return config::ListOf<XlsSettings>(keys);
}

}  // namespace vexlator::exporter

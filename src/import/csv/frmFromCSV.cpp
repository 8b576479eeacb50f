// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/csv/frmFromCSV.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "formats/SourceText.h"
#include "import/FeatureCode.h"
#include "import/FeatureLayer.h"
#include "import/SourceFiles.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace vexlator::importer {

frmFromCSV::frmFromCSV(config::Run& run)
    : run_(run),
      import_(run, "frmFromCSV"),
      drawing_(import_.Drawing()),
      settings_(ReadCsvImportSettings(run)),
      columns_(settings_.table) {}

config::Outcome frmFromCSV::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) { return ImportCsvFile(path); });
    return import_.Finish();
}

bool frmFromCSV::ImportCsvFile(const std::string& path) {
    auto file = OpenTextSource(path, run_.Ui());
    if (!file) return false;
    std::string code =
        settings_.fixedFeature.empty() ? Capitals(util::BaseNameOf(path)) : settings_.fixedFeature;
    try {
        return ImportTable(code, *file);
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
}

bool frmFromCSV::ImportTable(const std::string& code, platform::MappedFile& file) {
    import_.View().SetLabel(code);
    std::string style = SelectFeatureLayer(run_, drawing_, code);
    std::string decoded;
    formats::CsvRecords records(formats::TextBehindMark(file.Text(), decoded), settings_.table.delimiter);
    if (settings_.table.header) columns_.ReadCsvHeader(records.ReadRow());
    bool complete = HasItsColumns();
    if (std::string what = WhatToSet(settings_.table, columns_); !what.empty())
        run_.Ui().Report(file.Name() + ": " + what);
    if (!complete) return false;
    drawing::GenerateAtp(run_, FeatureTemplatePath(run_, code), columns_.AttributeNames(),
                         columns_.AttributeWidths());
    std::string symbol = drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, style), drawing_);
    if (symbol.empty()) return false;
    set_ = drawing_.attributeSet(columns_.AttributeNames());
    ReadRecords(records, symbol, file);
    import_.View().SetLabel("Completed!");
    return true;
}

bool frmFromCSV::HasItsColumns() {
    bool named = settings_.table.header && !settings_.table.east.empty();
    if (named && (columns_.East() < 0 || columns_.North() < 0) &&
        !run_.Ui().AskYesNo("East or North Field '" + settings_.table.east + "/" + settings_.table.north +
                            "' Not Found\n\nContinue with No Coords?")) {
        import_.LeaveOut(config::Outcome::Status::StoppedByUser);
        return false;
    }
    if (columns_.Key() >= 0) return true;
    run_.Ui().ShowMessage("Key Field '" + settings_.table.key + "' Not Found");
    return false;
}

void frmFromCSV::ReadRecords(formats::CsvRecords& records, const std::string& symbol,
                             platform::MappedFile& file) {
    constexpr std::uint64_t refreshStep = 501;
    formats::MissingValues missing(file.Bytes().size());
    formats::CsvRecord record{};
    OddRows notLocated, doubtful;
    while (records.Next(columns_, record)) {
        if (record.located == formats::CsvRecord::Located::No) notLocated.Add(records.Line());
        if (record.located == formats::CsvRecord::Located::Doubtful) doubtful.Add(records.Line());
        drawing_.addInsert({record.east, record.north, 0}, symbol, 1, 1, 0);
        if (std::size_t names = columns_.AttributeNames().size(); names > 0) {
            missing.Count(names - record.values.size(), records.Line());
            AttachCsvAttributes(record);
        }
        import_.CountFeatures(1);
        import_.Sink().FeatureDone();
        file.DoneBefore(records.Position());
        if (records.Count() % refreshStep == 0) ShowCsvProgress(records.Count());
    }
    std::uint64_t all = records.Count();
    Tell(file.Name(), "rows without a coordinate, which is taken as 0", notLocated, all);
    Tell(file.Name(), "rows with a coordinate that only starts with a number, which is used", doubtful, all);
    ShowCsvProgress(records.Count());
}

void frmFromCSV::Tell(const std::string& fileName, const std::string& what, const OddRows& rows,
                      std::uint64_t all) {
    if (rows.count == 0) return;
    run_.Ui().Report(fileName + ": " + what + ": " + util::GroupedCount(rows.count) + " of " +
                     util::GroupedCount(all) + ", the first in line " + util::GroupedCount(rows.firstLine));
}

void frmFromCSV::AttachCsvAttributes(const formats::CsvRecord& record) {
    drawing_.beginValues(set_);
    for (std::string_view value : record.values) drawing_.appendValue(value);
    for (std::size_t i = record.values.size(); i < columns_.AttributeNames().size(); ++i)
        drawing_.appendValue("");
}

void frmFromCSV::ShowCsvProgress(std::uint64_t count) {
    import_.View().Progress(count, 0);
}

}  // namespace vexlator::importer

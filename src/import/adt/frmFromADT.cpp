// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/adt/frmFromADT.h"

#include "formats/SourceText.h"
#include "import/SourceFiles.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <vector>

namespace vexlator::importer {

frmFromADT::frmFromADT(config::Run& run)
    : run_(run), import_(run, "frmFromADT"), drawing_(import_.Drawing()), layers_(run, drawing_) {}

config::Outcome frmFromADT::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) { return ImportAdtFile(path); });
    import_.View().SetLabel("Completed!");
    return import_.Finish();
}

bool frmFromADT::ImportAdtFile(const std::string& path) {
    auto file = OpenTextSource(path, run_.Ui());
    if (!file) return false;
    import_.View().SetLabel(util::BaseNameOf(path));
    OddRecords unlocated;
    try {
        std::string decoded;
        formats::AdtFile records(formats::TextBehindMark(file->Text(), decoded));
        formats::MissingValues missing(file->Bytes().size());
        formats::AdtRecord record;
        while (records.Next(record)) {
            if (!record.isLocated && unlocated.count++ == 0) unlocated.firstLine = records.Line();
            AddFeature(record);
            std::size_t attributes = layers_.Current().fields.size();
            missing.Count(attributes - std::min(attributes, record.values.size()), records.Line());
            import_.CountFeatures(1);
            import_.Sink().FeatureDone();
            file->DoneBefore(records.Position());
            import_.View().Progress(import_.Features(), 0);
        }
        ReportOdd(file->Name(), "records with a coordinate that is no number, which is taken as 0",
                  unlocated.count, unlocated.firstLine);
        ReportOdd(file->Name(), "rows without a feature code, left out", records.WithoutCode(),
                  records.FirstWithoutCode());
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
    return true;
}

void frmFromADT::AddFeature(const formats::AdtRecord& record) {
    layers_.SelectFeatureLayer(layers_.MapAliasCode(record.code), FeatureLayers::Kind::Point);
    drawing::Point at{record.east, record.north, record.height};
    const std::string& symbol = layers_.SymbolBlock();
    if (symbol.empty())
        drawing_.addPoint(at);
    else
        drawing_.addInsert(at, symbol, 1, 1, 0);
    std::size_t names = std::max(layers_.Current().fields.size(), record.values.size());
    if (names == 0) return;
    drawing_.beginValues(AttributesFor(record.values.size()));
    for (std::string_view value : record.values) drawing_.appendValue(value);
    for (std::size_t i = record.values.size(); i < names; ++i) drawing_.appendValue("");
}

drawing::AttributeSet frmFromADT::AttributesFor(std::size_t values) {
    const FeatureTemplate& code = layers_.Current();
    if (values <= code.fields.size()) return code.attributes;
    std::string key = drawing_.activeLayerName() + "/" + std::to_string(values);
    auto [known, isNew] = longSets_.try_emplace(std::move(key), 0);
    if (!isNew) return known->second;
    std::vector<std::string> names = code.fields;
    while (names.size() < values) names.push_back("FIELD" + std::to_string(names.size() + 1));
    return known->second = drawing_.attributeSet(names);
}

void frmFromADT::ReportOdd(const std::string& file, const std::string& what, std::uint64_t count,
                           std::uint64_t line) {
    if (count == 0) return;
    run_.Ui().Report(file + ": " + what + ": " + util::GroupedCount(count) + ", the first in line " +
                     util::GroupedCount(line));
}

}  // namespace vexlator::importer

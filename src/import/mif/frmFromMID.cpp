// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/mif/frmFromMID.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "formats/SourceText.h"
#include "formats/mif/MifHeader.h"
#include "import/FeatureCode.h"
#include "import/FeatureLayer.h"
#include "import/SourceFiles.h"
#include "import/mif/MifToDrawing.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <optional>

namespace vexlator::importer {

namespace {

struct MifImportSettings {
    bool extended = false;
};

using Keys = config::Keys<MifImportSettings>;

constexpr config::KeyOf<MifImportSettings> keys[] = {
    Keys::Flag("MIDIN", "Extended", &MifImportSettings::extended,
               "MIF imports convert arcs, rectangles, multipoints and collections too, and a text ends at "
               "the next object. Off: imports report these objects, and a text ends at the next empty line"),
};

void GenerateTemplate(config::Run& run, const std::string& code, const formats::MifHeader& header) {
    std::vector<std::string> names;
    std::vector<int> widths;
    for (const formats::MifColumn& column : header.columns) {
        names.push_back(column.name);
        widths.push_back(formats::MifColumnWidth(column.type));
    }
    drawing::GenerateAtp(run, FeatureTemplatePath(run, code), names, widths);
}

}  // namespace

config::Outcome frmFromMID::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) { return ImportMifFile(path); });
    return import_.Finish();
}

bool frmFromMID::ImportMifFile(const std::string& path) {
    auto mif = OpenTextSource(util::ChangeExtension(path, "MIF"), run_.Ui());
    if (!mif) return false;
    auto mid = OpenFile(util::ChangeExtension(path, "MID"), run_.Ui());
    std::string code = Capitals(util::BaseNameOf(path));
    import_.View().SetLabel(code);
    std::string style = SelectFeatureLayer(run_, drawing_, code);

    formats::MifLines lines(platform::WithoutByteOrderMark(mif->Text()), mif->Name());
    std::optional<formats::MifHeader> header = formats::ReadMifHeader(lines);
    if (!header) {
        run_.Ui().Report(mif->Name() + ": has no \"Columns\" line; nothing was imported from it");
        return false;
    }
    GenerateTemplate(run_, code, *header);
    std::string symbol = drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, style), drawing_);
    MifToDrawing objects({drawing_, run_.Ui(), symbol,
                          config::ReadKeys<MifImportSettings>(run_.Installation(), keys).extended},
                         *header, lines,
                         mid ? std::optional(platform::WithoutByteOrderMark(mid->Text())) : std::nullopt);
    ReadObjects(objects, *mif, mid ? &*mid : nullptr);
    run_.Losses().Count(config::LossReport::Kind::NoRow, code, "", objects.WithoutRow());
    if (!mid)
        run_.Ui().Report(mif->Name() + ": its features have no attributes, because " +
                         util::FileNameOf(util::ChangeExtension(path, "MID")) + " is missing or empty");
    for (const std::string& remark : objects.Remarks()) run_.Ui().Report(mif->Name() + ": " + remark);
    import_.View().SetLabel("Completed!");
    return mid.has_value();
}

void frmFromMID::ReadObjects(MifToDrawing& objects, platform::MappedFile& mif, platform::MappedFile* mid) {
    constexpr std::uint64_t refreshStep = 500;
    std::uint64_t threshold = refreshStep, refreshed = objects.Lines().Line();
    try {
        while (objects.ReadObject()) {
            if (!objects.IsWithinCollection()) import_.Sink().FeatureDone();
            mif.DoneBefore(objects.Lines().Position());
            if (mid) mid->DoneBefore(objects.RowPosition());
            if (objects.Lines().Line() - refreshed <= threshold) continue;
            ShowProgress(objects);
            refreshed = objects.Lines().Line();
            threshold += refreshStep;
        }
        ShowProgress(objects);
        objects.ShowRemainingRows();
    } catch (const platform::ReadError& error) {
        import_.CountFeatures(objects.ObjectCount());
        throw error.InFile(mid ? mid->Name() : mif.Name());
    }
    import_.CountFeatures(objects.ObjectCount());
}

void frmFromMID::ShowProgress(const MifToDrawing& objects) {
    import_.View().Progress(objects.ObjectCount(), 0);
    if (objects.MultiSectionCount() > 0 || objects.NoneCount() > 0)
        import_.View().SetLabel("M:" + std::to_string(objects.MultiSectionCount()) +
                                "  N:" + std::to_string(objects.NoneCount()));
}

config::KeyList MifImportKeys() {
    return config::ListOf<MifImportSettings>(keys);
}

}  // namespace vexlator::importer

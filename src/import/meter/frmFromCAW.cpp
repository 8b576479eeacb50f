// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/meter/frmFromCAW.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "formats/SourceText.h"
#include "import/FeatureLayer.h"
#include "import/SourceFiles.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <array>

namespace vexlator::importer {

namespace {

constexpr std::string_view meterCode = "METER";

// In the order of the file; the last says where the meter is known to be.
const std::array<std::string, 5> meterAttributes = {"MeterRef", "Reading", "Date", "Remarks", "GPS"};
constexpr std::array<int, 5> meterWidths = {32, 12, 10, 60, 14};

}  // namespace

config::Outcome frmFromCAW::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList,
                          [&](const std::string& path) { return ImportMeterFile(path); });
    import_.View().SetLabel("Completed!");
    return import_.Finish();
}

bool frmFromCAW::ImportMeterFile(const std::string& path) {
    auto file = OpenTextSource(path, run_.Ui());
    if (!file) return false;
    try {
        std::string decoded;
        formats::MeterFile meters(formats::TextBehindMark(file->Text(), decoded));
        import_.View().SetLabel(std::string(meterCode));
        std::string style = SelectFeatureLayer(run_, import_.Drawing(), meterCode);
        drawing::GenerateAtp(run_, FeatureTemplatePath(run_, meterCode), meterAttributes, meterWidths);
        std::string symbol =
            drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, style), import_.Drawing());
        if (symbol.empty()) return false;
        set_ = import_.Drawing().attributeSet(meterAttributes);
        ReadMeters(meters, symbol, *file);
        return true;
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
}

void frmFromCAW::ReadMeters(formats::MeterFile& meters, const std::string& symbol,
                            platform::MappedFile& file) {
    unplaced_ = 0;
    std::uint64_t read = 0;
    formats::MeterRecord meter;
    while (meters.Next(meter)) {
        AddMeter(meter, symbol);
        import_.CountFeatures(1);
        import_.Sink().FeatureDone();
        file.DoneBefore(meters.Position());
        import_.View().Progress(++read, 0);
    }
    ReportMeters(meters, file.Name(), read);
}

void frmFromCAW::AddMeter(const formats::MeterRecord& meter, const std::string& symbol) {
    std::optional<util::PlanePoint> place = formats::MeterPosition(meter.remarks);
    if (!place) ++unplaced_;
    drawing::Drawing& drawing = import_.Drawing();
    drawing.addInsert({place ? place->x : 0, place ? place->y : 0, 0}, symbol, 1, 1, 0);
    drawing.beginValues(set_);
    for (std::string_view value :
         {meter.reference, meter.reading, meter.date, meter.remarks, place ? util::Trim(meter.remarks) : ""})
        drawing.appendValue(value);
}

void frmFromCAW::ReportMeters(const formats::MeterFile& meters, const std::string& file, std::uint64_t read) {
    if (unplaced_ > 0)
        run_.Ui().Report(file + ": " + util::Counted(unplaced_, "meter") +
                         " without a grid reference in the remarks, placed at 0, 0");
    if (meters.OtherLines() > 0)
        run_.Ui().Report(file + ": " + util::Counted(meters.OtherLines(), "line") +
                         " left out, because they do not begin with cr, the first is line " +
                         util::GroupedCount(meters.FirstOtherLine()));
    if (meters.Announced() != read)
        run_.Ui().Report(file + ": the header announces " + util::Counted(meters.Announced(), "meter") +
                         ", the file holds " + util::GroupedCount(read));
}

}  // namespace vexlator::importer

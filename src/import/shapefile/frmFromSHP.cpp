// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/shapefile/frmFromSHP.h"

#include "drawing/AttributeTemplate.h"
#include "drawing/SymbolBlock.h"
#include "formats/shapefile/ShapefileReader.h"
#include "import/FeatureCode.h"
#include "import/FeatureLayer.h"
#include "import/shapefile/TableAttributes.h"
#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <optional>

namespace vexlator::importer {

using formats::ShapeClass;
using formats::ShapeRecord;

namespace {

constexpr std::int32_t partLineWeight = 30;

}  // namespace

/// One shapefile during its import.
struct frmFromSHP::Source {
    std::string code, symbol;
    platform::MappedFile shp, shx;
    formats::ShapefileReader reader;
    std::optional<TableAttributes> table;
    std::uint64_t count = 0;

    Source(std::string featureCode, platform::MappedFile&& shpFile, platform::MappedFile&& shxFile)
        : code(std::move(featureCode)),
          shp(std::move(shpFile)),
          shx(std::move(shxFile)),
          reader(shp.Bytes(), shx.Bytes()) {}
};

frmFromSHP::frmFromSHP(config::Run& run)
    : run_(run),
      import_(run, "frmFromSHP"),
      drawing_(import_.Drawing()),
      settings_(ReadShapeImportSettings(run)),
      coordinates_(run, settings_) {}
frmFromSHP::~frmFromSHP() = default;

std::string frmFromSHP::mkCodeNameFromFile(std::string_view path) {
    return FeatureCodeOf(path);
}

config::Outcome frmFromSHP::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList,
                          [&](const std::string& path) { return ImportShapefile(path); });
    import_.View().SetLabel("Completed!");
    return import_.Finish();
}

bool frmFromSHP::ImportShapefile(const std::string& path) {
    auto shp = OpenFile(path, run_.Ui());
    if (!shp) return false;
    if (shp->Bytes().empty()) {
        run_.Ui().ShowMessage("Error Opening " + shp->Name() + "\nThe file is empty");
        return false;
    }
    auto shx = OpenFile(util::ChangeExtension(path, "SHX"), run_.Ui());
    if (!shx) return false;
    bool pipes = settings_.customer == "CORVANTEX";
    run_.Log("Reading:" + platform::NativePath(path));

    Source source(pipes ? "PIPES" : mkCodeNameFromFile(path), std::move(*shp), std::move(*shx));
    coordinates_.BeginFile(path);
    source.symbol = SelectShapefileLayer(source.code);
    std::string dbfPath = util::ChangeExtension(path, "DBF");
    if (util::FileSize(dbfPath) > 0) {
        source.table.emplace(dbfPath, drawing_);
        drawing::GenerateAtp(run_, FeatureTemplatePath(run_, source.code), source.table->FieldNames(),
                             source.table->FieldWidths());
    } else {
        run_.Ui().Report(platform::NativePath(dbfPath) + " is missing or empty; the features of " +
                         util::FileNameOf(source.shp.Name()) + " have no attributes");
    }
    ReadRecords(source);
    Report(source);
    bool onlyUnknown = source.count == 0 && source.reader.RecordCount() > 0;
    return !onlyUnknown;
}

std::string frmFromSHP::SelectShapefileLayer(const std::string& code) {
    std::string style = SelectFeatureLayer(run_, drawing_, code);
    if (!style.empty()) drawing_.setActiveFillColour(drawing_.activeColour());
    return drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, style), drawing_);
}

void frmFromSHP::ReadRecords(Source& source) {
    std::size_t records = std::min(source.reader.RecordCount(), source.shp.Bytes().size() / 12);
    import_.Sink().ConvertBy(
        [this](std::span<util::PlanePoint> vertices) { coordinates_.Convert(vertices); });
    import_.View().SetLabel(source.code);
    ShapeRecord record;
    try {
        while (source.reader.Next(record)) {
            AddShape(source, record);
            import_.Sink().FeatureDone();
            import_.View().Progress(++source.count, records);
            source.shp.DoneBefore(record.offset);
        }
    } catch (const platform::ReadError& error) {
        import_.Sink().EndConversion();  // before the next file says how to convert
        import_.CountFeatures(source.count);
        throw error.InFile(source.shp.Name());
    }
    import_.CountFeatures(source.count);
    import_.Sink().EndConversion();
}

void frmFromSHP::AddShape(Source& source, const ShapeRecord& record) {
    switch (record.shapeClass) {
        case ShapeClass::Unknown:
            ShowUnknownType(source, record);
            --source.count;
            return;
        case ShapeClass::Null:
        case ShapeClass::Point: {
            util::PlanePoint at =
                record.shapeClass == ShapeClass::Point ? record.Point() : util::PlanePoint{};
            UseStyleFor(record);
            drawing_.addInsert({at.x, at.y, 0}, source.symbol, 1, 1, 0);
            AddAttributes(source, record);
            return;
        }
        case ShapeClass::Polyline:
        case ShapeClass::Polygon:
            AddParts(source, record);
            return;
    }
}

void frmFromSHP::UseStyleFor(const ShapeRecord& record) {
    bool hasLines = record.shapeClass == ShapeClass::Polyline || record.shapeClass == ShapeClass::Polygon;
    drawing::Style style = drawing_.activeStyle();
    style.lineWeight = hasLines ? partLineWeight : 0;
    if (record.shapeClass == ShapeClass::Polygon) style.fillColour = style.colour;
    if (!(style == drawing_.activeStyle())) drawing_.setActiveStyle(style);
}

void frmFromSHP::AddParts(Source& source, const ShapeRecord& record) {
    UseStyleFor(record);
    for (std::size_t part = 0; part < record.partCount; ++part) {
        drawing::Entity polyline = drawing_.addPolyline();
        std::size_t begin = record.PartBegin(part);
        record.CopyPoints(begin, drawing_.extendPlan(record.PartEnd(part) - begin));
        if (record.shapeClass == ShapeClass::Polygon) {
            polyline.setClosed(true);
            polyline.setFilled(true);
        }
        if (part == 0)
            AddAttributes(source, record);
        else if (source.table)
            drawing_.shareValues();
    }
}

void frmFromSHP::AddAttributes(Source& source, const ShapeRecord& record) {
    if (source.table) source.table->AddTo(drawing_, record.number);
}

void frmFromSHP::ShowUnknownType(const Source& source, const ShapeRecord& record) {
    run_.Ui().ShowMessage("Type " + std::to_string(record.type) + " Not Understood\nPos " +
                          std::to_string(record.offset + 1) + "/" + std::to_string(source.reader.ShpSize()));
}

void frmFromSHP::Report(const Source& source) {
    if (coordinates_.Kept() > 0)
        run_.Ui().Report(source.code + ": " + util::Counted(coordinates_.Kept(), "vertex", "vertices") +
                         " outside the conversion to the grid, not converted");
    run_.Losses().Count(config::LossReport::Kind::NoRow, source.code, "",
                        source.table ? source.table->MissingRows() : source.count);
    if (source.table)
        for (const std::string& remark : source.table->Remarks()) run_.Ui().Report(remark);
    run_.Log("        " + std::to_string(source.count) + " entites read OK");
}

}  // namespace vexlator::importer

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/ImportSources.h"

#include "drawing/SymbolBlock.h"
#include "gis/Ogr.h"
#include "gis/SourceAttributes.h"
#include "gis/SourceCoordinates.h"
#include "gis/SourceEntities.h"
#include "import/FeatureCode.h"
#include "import/FeatureLayer.h"
#include "import/ImportRun.h"
#include "import/gis/frmFromGIS.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace vexlator::gis {

namespace {

/// Taken for the size of a source that is no file.
constexpr std::uint64_t copiesOfOthers = std::uint64_t{1} << 30;

class Import {
public:
    Import(config::Run& run, const GisFormat& format, config::ConversionReport& report,
           const FeatureFilter& isWanted)
        : run_(run),
          format_(format),
          report_(report),
          isWanted_(isWanted),
          import_(run, std::string("frmFrom").append(format.code)),
          drawing_(import_.Drawing()),
          coordinates_(run),
          smallArea_(format.code == "TAB" ? importer::SmallAreaSize(run) : 0) {}

    config::Outcome Start(const std::vector<std::string>& sources, const std::string& drawingPath) {
        std::string rest;
        for (std::size_t i = 1; i < sources.size(); ++i) rest += "|" + sources[i];
        import_.Begin(drawingPath, util::FolderOf(drawingPath));
        import_.ForEachSource(sources.front(), rest,
                              [&](const std::string& path) { return ImportFile(path); });
        return import_.Finish();
    }

private:
    bool ImportFile(const std::string& path) {
        raster::Dataset source = OpenSource(format_, path);
        bool isFile = !format_.isServer && platform::FileExists(path);
        sourceBytes_ = isFile ? platform::SizeOfFile(path) : copiesOfOthers;
        std::uint64_t before = import_.Features();
        withoutPlace_ = 0;
        for (int i = 0; i < GDALDatasetGetLayerCount(source.get()); ++i)
            ReadLayer(GDALDatasetGetLayer(source.get(), i), path);
        if (withoutPlace_ > 0)
            run_.Ui().Report(platform::NativePath(path) + ": features without coordinates, left out: " +
                             util::GroupedCount(withoutPlace_));
        if (import_.Features() == before && withoutPlace_ == 0)
            run_.Ui().Report(platform::NativePath(path) + ": no features were found");
        return import_.Features() > before;
    }

    std::string CodeOf(OGRLayerH layer, const std::string& path) const {
        return format_.layersShareFile ? platform::AsUtf8(OGR_L_GetName(layer))
                                       : importer::FeatureCodeOf(path);
    }

    void ReadLayer(OGRLayerH layer, const std::string& path) {
        std::string code = CodeOf(layer, path);
        if (code.empty()) code = importer::FeatureCodeOf(path);
        std::string style = importer::SelectFeatureLayer(run_, drawing_, code);
        if (!style.empty()) drawing_.setActiveFillColour(drawing_.activeColour());
        std::string symbol = drawing::EnsureSymbolBlock(run_, util::GetCommaField(1, style), drawing_);
        SourceAttributes attributes(OGR_L_GetLayerDefn(layer), drawing_);
        report_.templates.push_back({code, attributes.Names(), attributes.Widths()});
        import_.View().SetLabel(code);
        std::string name = platform::NativePath(path);
        if (format_.layersShareFile) name += ": " + code;
        coordinates_.BeginLayer(OGR_L_GetSpatialRef(layer), name);
        if (run_.Options().extent.IsSet()) {
            OGREnvelope box = coordinates_.InSource(run_.Options().extent);
            OGR_L_SetSpatialFilterRect(layer, box.MinX, box.MinY, box.MaxX, box.MaxY);
        }
        SourceEntities entities(drawing_, attributes,
                                {.symbol = symbol, .smallArea = smallArea_, .sourceBytes = sourceBytes_});
        ReadFeatures(layer, path, entities);
        if (coordinates_.Kept() > 0)
            run_.Ui().Report(code + ": " + util::Counted(coordinates_.Kept(), "vertex", "vertices") +
                             " outside the conversion to the grid, not converted");
    }

    void ReadFeatures(OGRLayerH layer, const std::string& path, SourceEntities& entities) {
        if (coordinates_.AreConverted())
            import_.Sink().ConvertBy(
                [this](std::span<util::PlanePoint> points) { coordinates_.Convert(points); });
        std::uint64_t count = 0;
        auto end = [&] {
            import_.CountFeatures(count);
            import_.Sink().EndConversion();  // before the next layer says how to convert
        };
        try {
            OGR_L_ResetReading(layer);
            while (Feature feature{OGR_L_GetNextFeature(layer)}) {
                raster::RequireNoError(path);
                if (isWanted_ && !isWanted_(feature.get())) continue;
                entities.Add(feature.get()) ? ++count : ++withoutPlace_;
                import_.Sink().FeatureDone();
                import_.View().Progress(count, 0);
            }
            raster::RequireNoError(path);
        } catch (const platform::ReadError&) {
            end();
            throw;
        }
        end();
    }

    config::Run& run_;
    const GisFormat& format_;
    config::ConversionReport& report_;
    const FeatureFilter& isWanted_;
    importer::ImportRun import_;
    drawing::Drawing& drawing_;
    SourceCoordinates coordinates_;
    double smallArea_;
    std::uint64_t sourceBytes_ = 0, withoutPlace_ = 0;
};

}  // namespace

raster::Dataset OpenSource(const GisFormat& format, const std::string& path) {
    const char* drivers[] = {format.driver, nullptr};
    if (!format.isServer)
        return raster::Open(path, GDAL_OF_VECTOR, format.driver ? drivers : nullptr,
                            ("not a " + std::string(format.words) + " that can be read").c_str());
    raster::TakeReason();
    raster::Dataset source(GDALOpenEx(path.c_str(), GDAL_OF_VECTOR | GDAL_OF_READONLY | GDAL_OF_VERBOSE_ERROR,
                                      format.driver ? drivers : nullptr, nullptr, nullptr));
    if (!source) throw platform::ReadError(std::string(format.words), "", raster::TakeReason());
    return source;
}

config::Outcome ImportSources(config::Run& run, const GisFormat& format,
                              const std::vector<std::string>& sources, const std::string& drawingPath,
                              config::ConversionReport& report, const FeatureFilter& isWanted) {
    return Import(run, format, report, isWanted).Start(sources, drawingPath);
}

}  // namespace vexlator::gis

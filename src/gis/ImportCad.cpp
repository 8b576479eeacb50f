// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/ImportCad.h"

#include "drawing/Palette.h"
#include "formats/dxf/DxfInserts.h"
#include "formats/dxf/DxfLayers.h"
#include "gis/CadBlocks.h"
#include "gis/CadEntities.h"
#include "gis/DesignEnd.h"
#include "gis/Ogr.h"
#include "import/ImportRun.h"
#include "platform/CodePages.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "raster/Gdal.h"
#include "util/Counted.h"
#include "util/Paths.h"

#include <algorithm>
#include <array>
#include <cpl_conv.h>
#include <unordered_map>
#include <utility>

namespace vexlator::gis {

namespace {

struct CadFormat {
    std::string_view code;
    const char* driver;
    const char* otherwise;
};

constexpr CadFormat cadFormats[] = {
    {"DXF", "DXF", "not a DXF file that can be read"},
    {"DGN", "DGN", "not a design file of version 7, the one that can be read"},
    {"DWG", "CAD", "not a DWG file that can be read"}};

const CadFormat* FindFormat(std::string_view code) {
    auto found = std::ranges::find(cadFormats, code, &CadFormat::code);
    return found == std::end(cadFormats) ? nullptr : &*found;
}

/// What the first bytes of a DWG file say.
constexpr std::pair<std::string_view, std::string_view> releases[] = {
    {"AC1009", "release 12"},   {"AC1012", "release 13"},    {"AC1014", "release 14"},
    {"AC1018", "2004 to 2006"}, {"AC1021", "2007 to 2009"},  {"AC1024", "2010 to 2012"},
    {"AC1027", "2013 to 2017"}, {"AC1032", "2018 and later"}};

void RequireReadableDwg(const platform::MappedFile& file) {
    constexpr std::size_t length = 6;
    std::string_view version = file.Text().substr(0, length);
    for (const auto& [mark, name] : releases)
        if (version == mark)
            throw platform::ReadError(file.Name(), "",
                                      "DWG of " + std::string(name) + " (" + std::string(mark) +
                                          "); only DWG of 2000 to 2002 (AC1015) is read; save it as DXF");
}

void RequireTextDxf(const platform::MappedFile& file) {
    if (file.Text().starts_with("AutoCAD Binary DXF"))
        throw platform::ReadError(file.Name(), "", "binary DXF; only DXF as text is read; save it so");
}

void RequireDesignFile(const platform::MappedFile& file) {
    if (file.Text().starts_with("\xD0\xCF\x11\xE0"))
        throw platform::ReadError(
            file.Name(), "", "a design file of version 8; only version 7 is read; save it so, or as DXF");
}

/// A file that ends early would seem to be a smaller drawing.
void RequireEnd(const platform::MappedFile& file) {
    std::string_view text = file.Text();
    while (!text.empty() && std::string_view(" \t\r\n\x1a\0", 6).find(text.back()) != std::string_view::npos)
        text.remove_suffix(1);
    if (!text.ends_with("EOF")) throw platform::ReadError(file.Name(), "", "it ends before its line EOF");
}

class CadImport {
public:
    CadImport(config::Run& run, const CadFormat& format)
        : run_(run), format_(format), import_(run, "frmFromCAD"), drawing_(import_.Drawing()) {}

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
        Prepare(path);
        const char* drivers[] = {format_.driver, nullptr};
        raster::Dataset source = raster::Open(path, GDAL_OF_VECTOR, drivers, format_.otherwise);
        CadBlocks blocks(run_);
        std::uint64_t before = import_.Features();
        withoutPlace_ = 0;
        for (int i = 0; i < GDALDatasetGetLayerCount(source.get()); ++i) {
            OGRLayerH layer = GDALDatasetGetLayer(source.get(), i);
            bool holdsBlocks = format_.code == "DXF" && std::string_view(OGR_L_GetName(layer)) == "blocks";
            if (holdsBlocks)
                blocks.Read(layer, path);
            else
                ReadLayer(layer, path, blocks);
        }
        std::string name = platform::NativePath(path);
        blocks.Report(name);
        if (withoutPlace_ > 0)
            run_.Ui().Report(
                name + ": entities without coordinates, left out: " + util::GroupedCount(withoutPlace_));
        if (import_.Features() == before) run_.Ui().Report(name + ": no entities were found");
        return import_.Features() > before;
    }

    /// Refuses what would be read wrongly, and takes from the file what GDAL does not tell.
    void Prepare(const std::string& path) {
        platform::MappedFile file(path);
        if (file.Bytes().empty()) return;  // the opening says so
        if (format_.code == "DWG") RequireReadableDwg(file);
        if (format_.code == "DGN") RequireDesignFile(file);
        if (format_.code == "DGN" && !HasDesignEnd(file.Text()))
            run_.Ui().Report(file.Name() + ": it has no end mark, and may have been cut");
        if (format_.code != "DXF") return;
        RequireTextDxf(file);
        RequireEnd(file);
        bool isUtf8 = !platform::IsAscii(file.Text()) && platform::IsUtf8(file.Text());
        CPLSetConfigOption("DXF_ENCODING", isUtf8 ? "UTF-8" : nullptr);
        for (const formats::DxfLayer& layer : formats::ReadDxfLayers(file.Text())) AddLayer(layer);
        insertColours_.clear();
        for (const auto& [handle, colour] : formats::ReadDxfInsertColours(file.Text()))
            insertColours_[handle] = colour.rgb >= 0
                                         ? drawing::ColourOfRgb(static_cast<std::uint32_t>(colour.rgb))
                                         : static_cast<drawing::Colour>(colour.index);
    }

    void AddLayer(const formats::DxfLayer& layer) {
        drawing::Layer& own = drawing_.addLayer(layer.name);
        own.frozen = layer.isHidden;
        own.colour = layer.rgb >= 0 ? drawing::ColourOfRgb(static_cast<std::uint32_t>(layer.rgb))
                                    : static_cast<drawing::Colour>(layer.colourIndex);
    }

    void ReadLayer(OGRLayerH layer, const std::string& path, CadBlocks& blocks) {
        CadEntities entities(drawing_, OGR_L_GetLayerDefn(layer), CadEntities::Place::Ground);
        entities.UseColours(insertColours_);
        if (format_.code == "DWG") entities.UseLayer(platform::AsUtf8(OGR_L_GetName(layer)));
        std::uint64_t count = 0;
        try {
            OGR_L_ResetReading(layer);
            while (Feature feature{OGR_L_GetNextFeature(layer)}) {
                raster::RequireNoError(path);
                if (entities.FillsLast(feature.get())) continue;
                import_.Sink().FeatureDone();  // not sooner: a hatch may fill the last one
                if (std::string block = entities.InsertedBlock(feature.get()); !block.empty())
                    blocks.AddTo(drawing_, block);
                entities.Add(feature.get()) ? ++count : ++withoutPlace_;
                import_.View().Progress(count, 0);
            }
            raster::RequireNoError(path);
        } catch (const platform::ReadError&) {
            import_.CountFeatures(count);
            throw;
        }
        import_.Sink().FeatureDone();
        import_.CountFeatures(count);
    }

    config::Run& run_;
    const CadFormat& format_;
    importer::ImportRun import_;
    drawing::Drawing& drawing_;
    std::unordered_map<std::string, drawing::Colour> insertColours_;  ///< by handle
    std::uint64_t withoutPlace_ = 0;
};

}  // namespace

bool IsCadFormat(std::string_view code) {
    return FindFormat(code) != nullptr;
}

config::Outcome ImportCad(config::Run& run, const std::string& code, const std::vector<std::string>& sources,
                          const std::string& drawingPath) {
    CPLSetConfigOption("DXF_INLINE_BLOCKS", "FALSE");
    CPLSetConfigOption("DXF_MERGE_BLOCK_GEOMETRIES", "FALSE");
    CPLSetConfigOption("DXF_INCLUDE_RAW_CODE_VALUES", "TRUE");
    return CadImport(run, *FindFormat(code)).Start(sources, drawingPath);
}

}  // namespace vexlator::gis

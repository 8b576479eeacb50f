// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "gis/CadBlocks.h"

#include "drawing/SymbolBlock.h"
#include "drawing/Vdf.h"
#include "gis/CadEntities.h"
#include "gis/Ogr.h"
#include "platform/CodePages.h"
#include "raster/Gdal.h"
#include "util/ShortList.h"

namespace vexlator::gis {

namespace {

void ReportList(config::Run& run, const std::string& what, const std::set<std::string>& names) {
    constexpr std::size_t mostNamed = 5;
    util::ShortList list(mostNamed);
    for (const std::string& name : names) list.Add(util::ShortList::Shortened(name));
    if (!list.Empty()) run.Ui().Report(what + list.Text());
}

}  // namespace

void CadBlocks::Read(OGRLayerH layer, const std::string& file) {
    OGRFeatureDefnH definition = OGR_L_GetLayerDefn(layer);
    std::map<std::string, std::unique_ptr<CadEntities>> open;
    OGR_L_ResetReading(layer);
    while (Feature feature{OGR_L_GetNextFeature(layer)}) {
        raster::RequireNoError(file);
        std::string name = platform::AsUtf8(
            OGR_F_GetFieldAsString(feature.get(), OGR_FD_GetFieldIndex(definition, "Block")));
        Block& block = blocks_[name];
        auto& entities = open[name];
        if (!entities)
            entities = std::make_unique<CadEntities>(*block.content, definition, CadEntities::Place::Symbol);
        std::string inner = entities->InsertedBlock(feature.get());
        if (!inner.empty()) block.shown.insert(inner);
        if (!entities->FillsLast(feature.get())) entities->Add(feature.get());
    }
    raster::RequireNoError(file);
}

const std::string& CadBlocks::BytesOf(const std::string& name) {
    static const std::string none;
    auto found = blocks_.find(name);
    if (found == blocks_.end()) return none;
    Block& block = found->second;
    if (block.isOpen) {
        endless_.insert(name);
        return none;
    }
    if (block.isMade) return block.bytes;
    block.isOpen = true;
    for (const std::string& inner : block.shown) AddTo(*block.content, inner);
    block.bytes = drawing::VdfBytes(*block.content);
    block.isOpen = false;
    block.isMade = true;
    block.content.reset();
    if (block.bytes.size() > drawing::largestSymbol) {
        large_.insert(name);
        block.bytes.clear();
    }
    return block.bytes;
}

void CadBlocks::AddTo(drawing::Drawing& drawing, const std::string& name) {
    if (!drawing.findBlock(name)) drawing.addBlock({name, BytesOf(name)});
}

void CadBlocks::Report(const std::string& file) const {
    ReportList(run_, file + ": blocks that contain themselves, left out within themselves: ", endless_);
    ReportList(run_, file + ": blocks of more than 16 MB, whose contents are left out: ", large_);
}

}  // namespace vexlator::gis

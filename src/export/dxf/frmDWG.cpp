// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dxf/frmDWG.h"

#include "config/Converter.h"
#include "config/Waiting.h"
#include "drawing/Palette.h"
#include "export/ExportSettings.h"
#include "export/dxf/DxfEntities.h"
#include "export/dxf/SymbolDrawings.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <algorithm>
#include <set>

namespace vexlator::exporter {

namespace {

/// The order of the losses' names.
struct NamedPattern {
    std::string_view name;
    std::initializer_list<double> lengths;
};

/// Dashes and gaps of the line types that maps draw.
std::vector<double> LengthsOf(std::string_view name) {
    static const NamedPattern patterns[] = {{"LineRiver", {10, -6}},
                                            {"LineDitch", {10, -6}},
                                            {"LineChannel_Drainage", {10, -6}},
                                            {"LineRockFace", {20, -26}},
                                            {"LineSlopeMove", {10, -6}},
                                            {"LineWetBed", {10, -6}},
                                            {"DASHED", {3, -1.5}},
                                            {"HIDDEN", {1.5, -1}},
                                            {"DOT", {0.4, -1.2}},
                                            {"DOTTED", {0.4, -1.2}},
                                            {"DASHDOT", {3, -1.2, 0.4, -1.2}},
                                            {"CENTER", {6, -1.5, 1.5, -1.5}},
                                            {"DIVIDE", {3, -1.2, 0.4, -1.2, 0.4, -1.2}},
                                            {"PHANTOM", {6, -1.5, 1.5, -1.5, 1.5, -1.5}}};
    for (const NamedPattern& pattern : patterns)
        if (platform::SameNoCase(pattern.name, name)) return pattern.lengths;
    return {};
}

template <typename List, typename Name>
bool HoldsName(const List& list, std::string_view name, Name nameOf) {
    return std::ranges::any_of(list,
                               [&](const auto& each) { return platform::SameNoCase(nameOf(each), name); });
}

class DxfFile {
public:
    DxfFile(config::Run& run, BegunExport& begun, FrozenLayers frozen)
        : run_(run),
          begun_(begun),
          frozen_(frozen),
          settings_(ReadCadSettings(run)),
          symbols_(run, begun.file->Current(), InsertedNames()) {}

    void Write(const std::string& path) {
        platform::OutputFile file(path);
        formats::DxfWriter writer(file, Head());
        for (const SymbolDrawings::Symbol& symbol : symbols_.All()) WriteSymbol(writer, symbol);
        writer.BeginEntities();
        WriteGround(writer);
        writer.Finish();
        run_.Losses().Count(config::LossReport::Kind::Cut, "values beyond 16 KB of a feature", "",
                            writer.ValuesCut());
        file.Commit();
    }

private:
    const drawing::Drawing& Owner() const { return begun_.file->Current(); }

    bool IsWritten(const drawing::Layer& layer) const {
        return frozen_ == FrozenLayers::Kept || !layer.frozen;
    }

    /// Also notes which layers have entities.
    std::set<std::string> InsertedNames() {
        std::set<std::string> names;
        used_.resize(Owner().layerCount());
        begun_.ForEachChunk([&](const drawing::Drawing& chunk) {
            chunk.forEach([&](const drawing::EntityView& entity) {
                used_[entity.layerIndex()] = true;
                if (entity.kindCode() == drawing::Kind::Insert) names.insert(entity.blockName());
                if (entity.kindCode() == drawing::Kind::Text) textStyles_.insert(entity.shape().name);
            });
        });
        names.erase("");
        textStyles_.erase("");
        return names;
    }

    formats::DxfHead Head() {
        formats::DxfHead head{.release = settings_.release};
        drawing::Box box = begun_.file->Extents();
        head.minX = box.minX - settings_.originX;
        head.minY = box.minY - settings_.originY;
        head.maxX = box.maxX - settings_.originX;
        head.maxY = box.maxY - settings_.originY;
        head.application = "VEXLATOR";
        AddTables(Owner(), true, head);
        for (const SymbolDrawings::Symbol& symbol : symbols_.All()) {
            head.blocks.push_back(symbol.name);
            AddTables(symbol.content, false, head);
        }
        head.textStyles.assign(textStyles_.begin(), textStyles_.end());
        return head;
    }

    void AddTables(const drawing::Drawing& drawing, bool isOwner, formats::DxfHead& head) {
        for (std::size_t i = 0; i < drawing.layers().size(); ++i) {
            const drawing::Layer& layer = drawing.layers()[i];
            if (isOwner && !IsWritten(layer)) continue;
            CadLayer cad = isOwner ? LayerFor(layer) : CadLayer{.name = layer.name, .colour = layer.colour};
            AddLayer(cad.name, layer, head);
            if (cad.annotation && used_[i]) AddLayer(cad.annotationLayer, layer, head);
        }
        for (const drawing::Style& style : drawing.styles().All()) {
            bool isKnown =
                style.lineType.empty() || IsBuiltIn(style.lineType) ||
                HoldsName(head.lineTypes, style.lineType, [](const auto& type) { return type.name; });
            if (!isKnown) head.lineTypes.push_back({style.lineType, LengthsOf(style.lineType)});
        }
    }

    static bool IsBuiltIn(std::string_view lineType) {
        constexpr std::string_view names[] = {"ByBlock", "ByLayer", "Continuous"};
        return HoldsName(names, lineType, [](std::string_view name) { return name; });
    }

    static void AddLayer(const std::string& name, const drawing::Layer& layer, formats::DxfHead& head) {
        if (HoldsName(head.layers, name, [](const auto& each) { return each.name; })) return;
        formats::DxfColour colour{.index = static_cast<int>(layer.colour)};
        if (layer.colour > 255) colour = {.index = 7, .rgb = drawing::RgbOf(layer.colour)};
        head.layers.push_back({name, colour, layer.frozen});
    }

    CadLayer LayerFor(const drawing::Layer& layer) const {
        CadLayer cad{.name = CadPrefixOf(run_, layer.name) + layer.name,
                     .colour = layer.colour,
                     .annotation = CadAnnotationOf(run_, layer.name)};
        cad.annotationLayer = cad.name + "-ANNO";
        return cad;
    }

    void WriteSymbol(formats::DxfWriter& writer, const SymbolDrawings::Symbol& symbol) const {
        std::vector<CadLayer> layers;
        for (const drawing::Layer& layer : symbol.content.layers())
            layers.push_back({.name = layer.name, .colour = layer.colour});
        writer.BeginBlock(symbol.name);
        DxfEntities entities(writer, settings_, std::move(layers), DxfEntities::Place::Symbol);
        symbol.content.forEach([&](const drawing::EntityView& entity) { entities.Add(entity); });
        entities.Finish();
        writer.EndBlock();
    }

    void WriteGround(formats::DxfWriter& writer) {
        std::vector<CadLayer> layers;
        for (const drawing::Layer& layer : Owner().layers()) layers.push_back(LayerFor(layer));
        DxfEntities entities(writer, settings_, std::move(layers), DxfEntities::Place::Ground);
        std::uint64_t done = 0, total = begun_.file->EntityCount();
        begun_.ForEachChunk([&](const drawing::Drawing& chunk) {
            chunk.forEach([&](const drawing::EntityView& entity) {
                begun_.view->Progress(++done, total);
                if (!IsWritten(chunk.layers()[entity.layerIndex()])) return;
                entities.Add(entity);
                ++begun_.outcome.features;
            });
        });
        entities.Finish();
        begun_.outcome.features -= entities.LeftOut();
        for (std::size_t i = 0; i < used_.size(); ++i)
            if (used_[i] && IsWritten(Owner().layers()[i])) ++begun_.outcome.layers;
        run_.Losses().Count(config::LossReport::Kind::LeftOut, "entities of other kinds", "",
                            entities.LeftOut());
        run_.Losses().Count(config::LossReport::Kind::LeftOut, "fills of areas", "", entities.FillsLost());
    }

    config::Run& run_;
    BegunExport& begun_;
    FrozenLayers frozen_;
    CadSettings settings_;
    std::vector<bool> used_;  ///< layers with entities
    std::set<std::string> textStyles_;
    SymbolDrawings symbols_;
};

}  // namespace

config::Outcome frmDWG::Start(std::string_view drawingPath, std::string_view targetPath,
                              std::string_view format) {
    BegunExport begun = BeginExport(run_, "frmDWG", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    if (format == "DWG") {
        run_.Ui().ShowMessage(
            "DWG is a closed format that is not written; export to DXF, which the programs that "
            "read DWG read too");
        begun.outcome.status = config::Outcome::Status::Failed;
        return begun.outcome;
    }
    std::string name = ProjectPrefix(run_) + util::BaseNameOf(drawingPath);
    begun.outcome.target = util::JoinPath(targetPath, name + "." + std::string(format));
    if (format == "DGN") return ExportDgn(begun, drawingPath, targetPath, name);
    WriteDxf(run_, begun, begun.outcome.target, FrozenLayers::LeftOut);
    begun.view->SetLabel("Completed!");
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(begun.outcome.target);
    config::Pause(run_.Ui(), 1);
    return begun.outcome;
}

config::Outcome frmDWG::ExportDgn(const BegunExport& begun, std::string_view drawingPath,
                                  std::string_view targetPath, const std::string& name) {
    config::Outcome outcome = config::RunConverter(run_, *begun.view,
                                                   {"export", "DGN", platform::NativePath(drawingPath),
                                                    platform::NativePath(targetPath), name})
                                  .outcome;
    if (run_.Settings().AutoLaunchExport) util::OpenDocument(outcome.target);
    config::Pause(run_.Ui(), 1);
    return outcome;
}

void WriteDxf(config::Run& run, BegunExport& begun, const std::string& path, FrozenLayers frozen) {
    DxfFile(run, begun, frozen).Write(path);
}

}  // namespace vexlator::exporter

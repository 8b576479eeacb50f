// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/LayerLoop.h"

#include "drawing/AttributeTemplate.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/WorkflowDatabase.h"

#include <algorithm>
#include <limits>
#include <set>

namespace vexlator::exporter {

namespace {

constexpr double pauseAfterLayer = 0.1;  ///< seconds

/// Names that differ only in letter case would be one file.
std::string UniqueFileName(std::set<std::string>& taken, std::string_view layerName) {
    std::string name = util::SafeFileName(layerName);
    std::string candidate = name;
    for (int n = 1; !taken.insert(platform::LowerAscii(candidate)).second; ++n)
        candidate = name + "(" + std::to_string(n) + ")";
    return candidate;
}

bool IsExported(const drawing::Layer& layer, LayerZero layerZero) {
    return !layer.frozen && (layerZero == LayerZero::Export || layer.name != "0");
}

std::vector<std::string> NamesOf(const drawing::EntityView& entity) {
    drawing::XPropertiesView properties = entity.xproperties();
    std::vector<std::string> names;
    for (std::size_t i = 0; i < properties.count(); ++i) names.emplace_back(properties.name(i));
    return names;
}

/// Sorts the entities of a chunk by layer. The cost grows with the chunk only.
class LayerParts {
public:
    /// `isWanted` says for each layer of the drawing whether to visit its entities.
    explicit LayerParts(const std::vector<bool>& isWanted) : isWanted_(isWanted), ends_(isWanted.size()) {}

    /// Calls `visit(layer, LayerPart)` for every wanted layer in the chunk, in order.
    template <typename Visit>
    void ForEach(const drawing::Drawing& chunk, Visit visit) {
        Count(chunk);
        std::ranges::sort(layers_);
        std::size_t end = 0;
        for (std::uint32_t layer : layers_) ends_[layer] = std::exchange(end, end + ends_[layer]);
        indexes_.resize(end);
        chunk.forEach([&](const drawing::EntityView& entity) {
            std::uint32_t layer = entity.layerIndex();
            if (isWanted_[layer]) indexes_[ends_[layer]++] = entity.index();
        });
        std::size_t begin = 0;
        for (std::uint32_t layer : layers_) {
            end = std::exchange(ends_[layer], 0);
            visit(layer, LayerPart{chunk, std::span(indexes_).subspan(begin, end - begin)});
            begin = end;
        }
        layers_.clear();
    }

private:
    void Count(const drawing::Drawing& chunk) {
        chunk.forEach([&](const drawing::EntityView& entity) {
            std::uint32_t layer = entity.layerIndex();
            if (isWanted_[layer] && ends_[layer]++ == 0) layers_.push_back(layer);
        });
    }

    const std::vector<bool>& isWanted_;
    std::vector<std::size_t> ends_;  ///< by layer: number of entities in the chunk, then the end of its part
    std::vector<std::uint32_t> layers_;   ///< wanted layers in the chunk
    std::vector<std::uint32_t> indexes_;  ///< indices of entities, layer after layer
};

}  // namespace

BegunExport BeginExport(config::Run& run, std::string_view formName, std::string_view drawingPath,
                        std::string_view targetPath, std::string_view photoList) {
    BegunExport begun;
    begun.view = run.Ui().ShowForm(formName);
    begun.view->SetCaption(":" + util::BaseNameOf(drawingPath));
    begun.outcome.target = targetPath;
    begun.file = std::make_unique<drawing::DrawingFile>(drawingPath);
    ReadJobSource(run, begun.file->Current().properties());
    if (!workflow::ConfirmExportAllowed(run)) {
        begun.outcome.status = config::Outcome::Status::StoppedByUser;
        return begun;
    }
    const std::string& source = run.Job().full;
    begun.photoPaths = GatherPhotos(run, *begun.file, util::FolderOf(source), util::BaseNameOf(source),
                                    targetPath, photoList);
    return begun;
}

void ExportLayer::Take(const drawing::EntityView& entity) {
    drawing::AttributeSet set = entity.attributeSet();
    if (entities++ == 0) names = NamesOf(entity);
    drawing::Kind kind = entity.kindCode();
    if (kind == drawing::Kind::Point || kind == drawing::Kind::Insert || kind == drawing::Kind::Polyline)
        ++pointsAndLines;
    drawing::XPropertiesView properties = entity.xproperties();
    if ((sets.empty() || set != lastSet) && knownSets.insert(set).second) sets.push_back(set);
    lastSet = set;
    if (!windows || platform::IsAscii(properties.encoded())) return;
    for (drawing::ValueCursor values = properties.values(); !values.AtEnd();) {
        std::string_view value = values.Next();
        if (platform::IsAscii(value)) continue;
        ascii = false;
        windows = windows && platform::FitsWindows1252(value);
    }
}

std::vector<ExportLayer> FindLayers(BegunExport& begun, LayerZero layerZero, const EmptyLayers& emptyLayers) {
    std::vector<ExportLayer> all;
    for (const drawing::Layer& layer : begun.file->Current().layers())
        all.push_back({.layer = layer, .index = static_cast<std::uint32_t>(all.size())});
    begun.ForEachChunk([&](const drawing::Drawing& chunk) {
        chunk.forEach([&](const drawing::EntityView& entity) {
            ExportLayer& layer = all[entity.layerIndex()];
            if (IsExported(layer.layer, layerZero)) layer.Take(entity);
        });
    });
    std::vector<ExportLayer> layers;
    std::set<std::string> taken;
    for (ExportLayer& layer : all) {
        bool wantedEmpty = emptyLayers && IsExported(layer.layer, layerZero) && emptyLayers(layer.layer);
        if (layer.entities == 0 && !wantedEmpty) continue;
        layer.fileName = UniqueFileName(taken, layer.layer.name);
        layers.push_back(std::move(layer));
    }
    return layers;
}

void WriteLayers(config::Run& run, BegunExport& begun, const std::vector<ExportLayer>& layers,
                 const std::function<void(std::size_t, const LayerPart&)>& write,
                 const std::function<std::uint64_t(std::size_t)>& finish) {
    std::vector<bool> isWanted(begun.file->Current().layerCount());
    std::vector<std::size_t> places(isWanted.size());
    std::uint64_t total = 0, done = 0;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        isWanted[layers[i].index] = true;
        places[layers[i].index] = i;
        total += layers[i].entities;
    }
    LayerParts parts(isWanted);
    begun.ForEachChunk([&](const drawing::Drawing& chunk) {
        parts.ForEach(chunk, [&](std::uint32_t layer, const LayerPart& part) {
            begun.view->SetLabel(layers[places[layer]].layer.name);
            write(places[layer], part);
            begun.view->Progress(done += part.indexes.size(), total);
        });
    });
    for (std::size_t i = 0; i < layers.size(); ++i) {
        begun.outcome.features += finish(i);
        run.Ui().Settle(pauseAfterLayer);
    }
    begun.outcome.layers = layers.size();
    begun.view->SetLabel("Completed!");
}

std::string TemplateFor(config::Run& run, const ExportLayer& layer) {
    std::string path = drawing::AtpPathFor(run, layer.layer.name);
    run.DebugMessage("ATPfile:" + platform::NativePath(path));
    if (util::FileSize(path) > 0) return path;
    drawing::WriteAtpFromFields(path, layer.names);
    return path;
}

void OpenWhole(const BegunExport& begun, std::string_view drawingPath, drawing::Drawing& drawing) {
    drawing.open(drawingPath);
    begun.photoPaths.ApplyTo(drawing);
}

void ForEachLayer(config::Run& run, drawing::Drawing& drawing, ui::FormView& view, LayerZero layerZero,
                  const std::function<void(const WholeLayer&)>& visit) {
    std::set<std::string> taken;
    for (const drawing::Layer& layer : drawing.layers()) {
        if (!IsExported(layer, layerZero)) continue;
        drawing::SelectionSet set = drawing.selectLayer(layer.name);
        if (set.count() == 0) continue;
        view.SetLabel(layer.name);
        WholeLayer whole{{.layer = layer, .fileName = UniqueFileName(taken, layer.name)}, set};
        whole.names = NamesOf(set.item(0));
        visit(whole);
        run.Ui().Settle(pauseAfterLayer);
    }
    view.SetLabel("Completed!");
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/SymbolScenes.h"

#include "drawing/SymbolBlock.h"
#include "drawing/Vdf.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "render/EntityItems.h"
#include "util/Paths.h"

namespace vexlator::render {

namespace {

/// Including the items of nested symbols.
std::uint64_t PaintedItems(const Scene& scene) {
    std::uint64_t count = scene.ItemCount();
    for (std::size_t i = 0; i < scene.ItemCount() && count <= SymbolScenes::mostItems; ++i)
        if (const Scene::Item& item = scene.At(i); item.kind == ItemKind::Symbol)
            count += PaintedItems(scene.SymbolOf(item));
    return count;
}

}  // namespace

std::shared_ptr<const Scene> SymbolScenes::Of(std::string_view blockName, const drawing::Drawing& owner,
                                              int depth) {
    if (depth >= deepest) return nullptr;
    // A symbol's own blocks are few, and only it uses them.
    if (&owner != &drawing_)
        if (const drawing::Block* own = owner.findBlock(blockName); own && !own->content.empty())
            return Unpack(*own, depth);
    auto [known, isNew] = known_.try_emplace(std::string(blockName));
    Known& symbol = known->second;
    if (!isNew) return symbol.isOpen ? nullptr : symbol.scene;
    symbol.isOpen = true;
    const drawing::Block* block = drawing_.findBlock(blockName);
    symbol.scene = block && !block->content.empty() ? Unpack(*block, depth) : FromFolder(blockName, depth);
    symbol.isOpen = false;
    return symbol.scene;
}

std::shared_ptr<const Scene> SymbolScenes::Unpack(const drawing::Block& block, int depth) {
    drawing::Drawing content;
    try {
        drawing::ReadVdf(block, content);
    } catch (const platform::ReadError& error) {
        Tell(block.name, error.what());
        return nullptr;
    }
    return SceneOf(content, depth);
}

std::shared_ptr<const Scene> SymbolScenes::FromFolder(std::string_view name, int depth) {
    if (options_.symbolsFolder.empty() || name.empty()) return nullptr;
    std::string path = util::JoinPath(options_.symbolsFolder, util::SafeFileName(name) + ".VDF");
    std::uint64_t size = platform::SizeOfFile(path);
    if (size == 0 || size > drawing::largestSymbol) return nullptr;
    drawing::Drawing content;
    try {
        content.open(path);
    } catch (const platform::ReadError& error) {
        Tell(name, error.what());
        return nullptr;
    }
    return SceneOf(content, depth);
}

std::shared_ptr<const Scene> SymbolScenes::SceneOf(drawing::Drawing& content, int depth) {
    SceneBuilder builder;
    EntityItems items(builder, *this, depth + 1);
    items.AddLayers(content, std::vector<bool>(content.layerCount(), true));
    items.Add(content);
    auto scene = std::make_shared<const Scene>(builder.Take());
    if (scene->ItemCount() == 0) return nullptr;
    return PaintedItems(*scene) <= mostItems ? scene : nullptr;
}

void SymbolScenes::Tell(std::string_view name, std::string_view reason) const {
    if (options_.tell) options_.tell("symbol " + std::string(name) + ": " + std::string(reason));
}

}  // namespace vexlator::render

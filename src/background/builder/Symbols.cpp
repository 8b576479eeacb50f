// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/Symbols.h"

#include "drawing/Vdf.h"
#include "platform/Errors.h"

#include <cmath>

namespace vexlator::background {

drawing::Drawing* Symbols::ContentOf(std::string_view blockName, const drawing::Drawing& owner) {
    const drawing::Block* block = owner.findBlock(blockName);
    if (block == nullptr && &owner != &drawing_) block = drawing_.findBlock(blockName);
    if (block == nullptr || block->content.empty()) return nullptr;
    auto [known, isNew] = contents_.try_emplace(block);
    if (isNew) known->second = Unpack(*block);
    return known->second.get();
}

std::unique_ptr<drawing::Drawing> Symbols::Unpack(const drawing::Block& block) {
    auto content = std::make_unique<drawing::Drawing>();
    try {
        drawing::ReadVdf(block, *content);
        return content;
    } catch (const platform::ReadError& error) {
        ui_.ShowMessage("Symbol " + block.name + ": " + error.what());
        return nullptr;
    }
}

double Symbols::SizeOf(const drawing::Entity& insert) {
    const drawing::Shape& shape = insert.shape();
    double scaleX = std::abs(shape.scaleX), scaleY = std::abs(shape.scaleY);
    if (const drawing::Drawing* content = ContentOf(shape.name, drawing_)) {
        drawing::Box box = content->extents();
        scaleX *= box.maxX - box.minX;
        scaleY *= box.maxY - box.minY;
    }
    return std::max(scaleX, scaleY);
}

Placement PlacementOf(const drawing::Entity& insert, const Placement& outer) {
    const drawing::Shape& shape = insert.shape();
    drawing::Point at = insert.insertionPoint();
    return outer.Within({at.x, at.y}, shape.scaleX, shape.scaleY, shape.rotation);
}

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "ui/UserInterface.h"
#include "util/Placement.h"

#include <memory>
#include <string_view>
#include <unordered_map>

namespace vexlator::background {

using util::Placement;

/// The contents of the symbols of inserts, each unpacked at first use.
class Symbols {
public:
    Symbols(drawing::Drawing& drawing, ui::UserInterface& userInterface)
        : drawing_(drawing), ui_(userInterface) {}

    /// The contents of a block of the drawing, or of a symbol in it. nullptr if only the block's name is
    /// known, or if it cannot be read, which is reported once.
    drawing::Drawing* ContentOf(std::string_view blockName, const drawing::Drawing& owner);

    /// The longer side of an insert's symbol in the drawing; its scale if it is empty.
    double SizeOf(const drawing::Entity& insert);

private:
    std::unique_ptr<drawing::Drawing> Unpack(const drawing::Block& block);

    drawing::Drawing& drawing_;
    ui::UserInterface& ui_;
    std::unordered_map<const drawing::Block*, std::unique_ptr<drawing::Drawing>> contents_;
};

/// The placement of an insert's symbol, inside a symbol placed at `outer`.
Placement PlacementOf(const drawing::Entity& insert, const Placement& outer = {});

}  // namespace vexlator::background

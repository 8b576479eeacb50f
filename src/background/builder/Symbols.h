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

/// The contents of the symbols that inserts refer to, each unpacked when it is first needed.
class Symbols {
public:
    Symbols(drawing::Drawing& drawing, ui::UserInterface& userInterface)
        : drawing_(drawing), ui_(userInterface) {}

    /// What a block of the drawing, or of a symbol in it, draws; nullptr when only its name is known, or when
    /// it cannot be read, which is told once.
    drawing::Drawing* ContentOf(std::string_view blockName, const drawing::Drawing& owner);

    /// The larger side of an insert's symbol as it stands in the drawing; its scale when it draws nothing.
    double SizeOf(const drawing::Entity& insert);

private:
    std::unique_ptr<drawing::Drawing> Unpack(const drawing::Block& block);

    drawing::Drawing& drawing_;
    ui::UserInterface& ui_;
    std::unordered_map<const drawing::Block*, std::unique_ptr<drawing::Drawing>> contents_;
};

/// Where an insert puts its symbol, within a symbol that stands at `outer`.
Placement PlacementOf(const drawing::Entity& insert, const Placement& outer = {});

}  // namespace vexlator::background

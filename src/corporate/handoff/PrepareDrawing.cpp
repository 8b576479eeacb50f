// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/handoff/PrepareDrawing.h"

#include "drawing/Drawing.h"
#include "platform/CodePages.h"

#include <string>

namespace vexlator::corporate {

namespace {

constexpr std::size_t longestName = 10;

/// Returns whether a name has changed.
bool CutNames(drawing::Drawing& drawing) {
    bool hasChanged = false;
    for (std::size_t i = 0; i < drawing.entityCount(); ++i) {
        drawing::Entity entity = drawing.entityAt(i);
        for (std::size_t k = 0; k < entity.xproperties().count(); ++k) {
            drawing::XProperty property = entity.xproperties().item(k);
            const std::string name(property.name());
            const std::string cut(platform::FirstCharacters(name, longestName));
            if (cut == name) continue;
            property.setName(cut);
            hasChanged = true;
        }
    }
    return hasChanged;
}

}  // namespace

void PrepareDrawing(const exporter::BegunExport& begun, std::string_view drawingPath, AttributeNames names) {
    bool hasChanged = begun.photoPaths.AreChanged();
    if (!hasChanged && names == AttributeNames::Whole) return;
    drawing::Drawing drawing;
    exporter::OpenWhole(begun, drawingPath, drawing);
    if (names == AttributeNames::CutToTen) hasChanged |= CutNames(drawing);
    if (hasChanged) drawing.saveAs(std::string(drawingPath));
}

}  // namespace vexlator::corporate

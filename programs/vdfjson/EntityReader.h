// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "drawing/EntityNames.h"
#include "vdfjson/JsonValues.h"

#include <vector>

namespace vexlator::vdfjson {

/// Reads the `vdf` members of features, which hold complete entities.
class EntityReader {
public:
    explicit EntityReader(drawing::Drawing& drawing) : drawing_(drawing), names_(drawing) {}

    /// Adds the entity. @throws BadValue, after which the drawing may contain a part of it
    drawing::Entity Add(simdjson::dom::object vdf);

private:
    void ReadPlace(const Members& vdf, drawing::Kind kind);
    drawing::Entity Create(const Members& vdf, drawing::Kind kind, std::string_view kindName);
    void ReadXProperties(element list);

    drawing::Drawing& drawing_;
    drawing::EntityNames names_;
    std::vector<drawing::Point> points_;
};

}  // namespace vexlator::vdfjson

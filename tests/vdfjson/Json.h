// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "vdfjson/DrawingToJson.h"
#include "vdfjson/JsonToDrawing.h"

#include <string>
#include <string_view>

namespace vexlator::test {

inline std::string Dump(drawing::Drawing& drawing) {
    std::string json;
    vdfjson::DrawingToJson(drawing, [&](std::string_view piece) { json += piece; });
    return json;
}

inline void Load(std::string_view json, drawing::Drawing& drawing) {
    vdfjson::JsonToDrawing(json, "FILE", drawing);
}

inline std::string LoadAndDump(std::string_view json) {
    drawing::Drawing drawing;
    Load(json, drawing);
    return Dump(drawing);
}

/// A document of these features in the layout of a dump.
inline std::string Document(std::string_view features, std::string_view layers = "",
                            std::string_view properties = "", std::string_view activeLayer = "0",
                            std::string_view blocks = "") {
    std::string json = "{\"type\":\"FeatureCollection\",\n \"drawing\":{\"properties\":[";
    json.append(properties)
        .append("],\n            \"layers\":[{\"name\":\"0\",\"frozen\":false,\"colour\":7}");
    json.append(layers).append("],\n            \"activeLayer\":\"").append(activeLayer);
    json.append("\",\"blocks\":[").append(blocks).append("]},\n \"features\":[");
    return json.append(features).append("]}\n");
}

}  // namespace vexlator::test

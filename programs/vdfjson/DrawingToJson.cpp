// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/DrawingToJson.h"

#include "vdfjson/FeatureToJson.h"
#include "vdfjson/JsonText.h"

#include <string>

namespace vexlator::vdfjson {

namespace {

/// Commas between the elements of an array or object.
class Separator {
public:
    explicit Separator(std::string_view text = ",") : text_(text) {}
    void Next(std::string& out) {
        if (!first_) out += text_;
        first_ = false;
    }

private:
    std::string_view text_;
    bool first_ = true;
};

void AppendProperties(std::string& out, const drawing::Drawing& drawing) {
    Separator comma;
    for (const auto& [name, value] : drawing.properties()) {
        comma.Next(out);
        out += '[';
        AppendText(out, name);
        out += ',';
        AppendText(out, value);
        out += ']';
    }
}

void AppendLayers(std::string& out, const drawing::Drawing& drawing) {
    Separator comma(",\n            ");
    for (const drawing::Layer& layer : drawing.layers()) {
        comma.Next(out);
        out += "{\"name\":";
        AppendText(out, layer.name);
        out += ",\"frozen\":";
        AppendFlag(out, layer.frozen);
        out += ",\"colour\":";
        AppendNumber(out, std::int64_t{layer.colour});
        out += '}';
    }
}

void AppendBlocks(std::string& out, const drawing::Drawing& drawing) {
    Separator comma;
    for (const drawing::Block& block : drawing.blocks()) {
        comma.Next(out);
        AppendText(out, block.name);
    }
}

void AppendDrawing(std::string& out, const drawing::Drawing& drawing) {
    out += " \"drawing\":{\"properties\":[";
    AppendProperties(out, drawing);
    out += "],\n            \"layers\":[";
    AppendLayers(out, drawing);
    out += "],\n            \"activeLayer\":";
    AppendText(out, drawing.activeLayerName());
    out += ",\"blocks\":[";
    AppendBlocks(out, drawing);
    out += "]},\n";
}

}  // namespace

void DrawingToJson(drawing::Drawing& drawing, const TextSink& sink) {
    constexpr std::size_t pieceSize = std::size_t{1} << 20;
    std::string out = "{\"type\":\"FeatureCollection\",\n";
    AppendDrawing(out, drawing);
    out += " \"features\":[";
    FeatureToJson append(out);
    Separator comma;
    drawing.forEach([&](drawing::Entity entity) {
        comma.Next(out);
        out += "\n  ";
        append(entity);
        if (out.size() < pieceSize) return;
        sink(out);
        out.clear();
    });
    out += "]}\n";
    sink(out);
}

}  // namespace vexlator::vdfjson

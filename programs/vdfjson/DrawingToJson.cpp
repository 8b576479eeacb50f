// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/DrawingToJson.h"

#include "drawing/Vdf.h"
#include "platform/Errors.h"
#include "util/JsonText.h"
#include "vdfjson/FeatureToJson.h"

#include <cstdint>
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
        util::AppendText(out, name);
        out += ',';
        util::AppendText(out, value);
        out += ']';
    }
}

void AppendLayers(std::string& out, const drawing::Drawing& drawing) {
    Separator comma(",\n            ");
    for (const drawing::Layer& layer : drawing.layers()) {
        comma.Next(out);
        out += "{\"name\":";
        util::AppendText(out, layer.name);
        out += ",\"frozen\":";
        util::AppendFlag(out, layer.frozen);
        out += ",\"colour\":";
        util::AppendNumber(out, std::int64_t{layer.colour});
        out += '}';
    }
}

class Dump {
public:
    Dump(const TextSink& sink, const TextSink& note) : sink_(sink), note_(note) {}

    void Write(drawing::Drawing& drawing) {
        out_ = "{\"type\":\"FeatureCollection\",\n \"drawing\":{";
        AppendDescription(drawing, 0);
        out_ += "},\n \"features\":[";
        AppendEntities(drawing);
        out_ += "]}\n";
        sink_(out_);
    }

private:
    /// The device does not draw symbols at a greater depth. In a damaged drawing one content can stand for
    /// many, level by level.
    static constexpr int deepestBlock = 16;
    static constexpr std::uint64_t mostContent = std::uint64_t{1} << 30;

    /// The whole drawing except its entities, as members of an object. `depth`: number of blocks around it.
    void AppendDescription(const drawing::Drawing& drawing, int depth);
    void AppendBlock(const drawing::Block& block, int depth);
    bool Unpack(const drawing::Block& block, int depth, drawing::Drawing& content);
    void AppendEntities(drawing::Drawing& drawing);

    const TextSink& sink_;
    const TextSink& note_;
    std::string out_;
    std::uint64_t unpacked_ = 0;  ///< bytes of content so far
};

void Dump::AppendDescription(const drawing::Drawing& drawing, int depth) {
    out_ += "\"properties\":[";
    AppendProperties(out_, drawing);
    out_ += "],\n            \"layers\":[";
    AppendLayers(out_, drawing);
    out_ += "],\n            \"activeLayer\":";
    util::AppendText(out_, drawing.activeLayerName());
    out_ += ",\"blocks\":[";
    Separator comma;
    for (const drawing::Block& block : drawing.blocks()) {
        comma.Next(out_);
        AppendBlock(block, depth + 1);
    }
    out_ += ']';
}

void Dump::AppendBlock(const drawing::Block& block, int depth) {
    drawing::Drawing content;
    if (!Unpack(block, depth, content)) return util::AppendText(out_, block.name);
    out_ += "\n  {\"name\":";
    util::AppendText(out_, block.name);
    out_ += ',';
    AppendDescription(content, depth);
    out_ += ",\"entities\":[";
    AppendEntities(content);
    out_ += "]}";
}

/// False for a block without content, or with content that cannot be written, which is noted.
bool Dump::Unpack(const drawing::Block& block, int depth, drawing::Drawing& content) {
    if (block.content.empty()) return false;
    const std::string onlyName = "block \"" + block.name + "\" is written by its name only: ";
    unpacked_ += block.content.size();
    if (depth > deepestBlock || unpacked_ > mostContent) {
        note_(onlyName + "it is nested too deeply, or all blocks are too large");
        return false;
    }
    try {
        drawing::ReadVdf(block, content);
        return true;
    } catch (const platform::ReadError& error) {
        note_(onlyName + error.what());
        return false;
    }
}

void Dump::AppendEntities(drawing::Drawing& drawing) {
    constexpr std::size_t pieceSize = std::size_t{1} << 20;
    FeatureToJson append(out_);
    Separator comma;
    drawing.forEach([&](drawing::Entity entity) {
        comma.Next(out_);
        out_ += "\n  ";
        append(entity);
        if (out_.size() < pieceSize) return;
        sink_(out_);
        out_.clear();
    });
}

}  // namespace

void DrawingToJson(drawing::Drawing& drawing, const TextSink& sink, const TextSink& note) {
    Dump(sink, note).Write(drawing);
}

}  // namespace vexlator::vdfjson

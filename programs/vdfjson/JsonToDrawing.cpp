// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/JsonToDrawing.h"

#include "drawing/Vdf.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "vdfjson/EntityReader.h"
#include "vdfjson/JsonScanner.h"
#include "vdfjson/JsonValues.h"
#include "vdfjson/PlainFeatureReader.h"

#include <optional>
#include <utility>

namespace vexlator::vdfjson {

namespace {

/// A value that has been found but not parsed, and its position in the file.
struct Part {
    std::string_view text;
    std::size_t offset = 0;
    std::string Place() const { return platform::ReadError::AtByte(offset); }
};

/// Runs a step that may throw BadValue, and adds the place from `place()` to its errors.
template <typename Place, typename Step>
auto Placed(Place place, Step step) {
    try {
        return step();
    } catch (const BadValue& error) {
        throw platform::ReadError("", place(), error.what());
    }
}

/// Reads features into one drawing.
class FeatureReader {
public:
    FeatureReader(drawing::Drawing& drawing, std::string_view plainLayer, PropertyColumns& columns)
        : drawing_(drawing), entities_(drawing), plain_(drawing, plainLayer, columns) {}
    void AddFeature(element feature);
    void AddGeometry(element geometry) { plain_.Add(ObjectOf(geometry), std::nullopt); }

private:
    drawing::Drawing& drawing_;
    EntityReader entities_;
    PlainFeatureReader plain_;
};

void FeatureReader::AddFeature(element value) {
    enum FeatureMember : std::size_t { Type, Id, Geometry, Properties, Vdf };
    static constexpr std::array<std::string_view, 5> names = {"type", "id", "geometry", "properties", "vdf"};
    Members feature(ObjectOf(value), names);
    if (feature.Has(Type) && feature.Text(Type) != "Feature") throw BadValue("type: is not \"Feature\"");
    std::optional vdf = feature.Object(Vdf);
    drawing::Entity entity =
        vdf ? entities_.Add(*vdf) : plain_.Add(feature.Object(Geometry), feature.Object(Properties));
    if (feature.Has(Id) && feature.At(Id).is_string()) drawing_.setHandle(entity, feature.Text(Id));
}

std::vector<std::pair<std::string, std::string>> PropertiesOf(element list) {
    std::vector<std::pair<std::string, std::string>> properties;
    for (element item : ArrayOf(list)) {
        std::vector<std::string> texts;
        for (element text : ArrayOf(item)) texts.emplace_back(TextOf(text));
        if (texts.size() != 2) throw BadValue("holds something other than [name, value]");
        properties.emplace_back(std::move(texts[0]), std::move(texts[1]));
    }
    return properties;
}

void ReadLayer(element value, drawing::Drawing& drawing) {
    enum LayerMember : std::size_t { Name, Frozen, Colour };
    static constexpr std::array<std::string_view, 3> names = {"name", "frozen", "colour"};
    Members members(ObjectOf(value), names);
    if (!members.Has(Name)) throw BadValue("holds a layer without a name");
    drawing::Layer& layer = drawing.addLayer(members.Text(Name));
    layer.frozen = members.Flag(Frozen);
    layer.colour = members.WholeNumber(Colour, drawing::defaultColour);
}

enum DescriptionMember : std::size_t { Properties, Layers, ActiveLayer, Blocks, BlockName, Entities };

/// The description of a drawing: the whole one, or that of a block, which has a name and entities as well.
Members DescriptionOf(element value, std::string_view prefix) {
    static constexpr std::array<std::string_view, 6> names = {"properties", "layers", "activeLayer",
                                                              "blocks",     "name",   "entities"};
    return {ObjectOf(value), names, prefix};
}

void ReadBlock(element value, drawing::Drawing& drawing);

/// Everything except the entities. The active layer is set when they exist.
void ReadDescription(const Members& members, drawing::Drawing& drawing, std::string& activeLayer) {
    if (members.Has(Properties)) drawing.properties() = members.Get(Properties, PropertiesOf);
    if (members.Has(Layers))
        members.Get(Layers, [&](element list) {
            for (element layer : ArrayOf(list)) ReadLayer(layer, drawing);
        });
    if (members.Has(Blocks))
        members.Get(Blocks, [&](element list) {
            for (element block : ArrayOf(list)) ReadBlock(block, drawing);
        });
    if (members.Has(ActiveLayer)) activeLayer = members.Text(ActiveLayer);
}

void ReadEntities(element list, drawing::Drawing& content) {
    PropertyColumns columns;
    FeatureReader features(content, "0", columns);
    std::size_t number = 0;
    try {
        for (element feature : ArrayOf(list)) {
            ++number;
            features.AddFeature(feature);
        }
    } catch (const BadValue& error) {
        throw BadValue("number " + std::to_string(number), error.what());
    }
}

/// A name, or an object with the content of the symbol.
void ReadBlock(element value, drawing::Drawing& drawing) {
    if (value.is_string()) return drawing.addBlock({std::string(TextOf(value)), ""});
    Members members = DescriptionOf(value, "");
    if (!members.Has(BlockName)) throw BadValue("holds a block without a name");
    drawing::Block block{std::string(members.Text(BlockName)), ""};
    if (members.Has(Entities)) {
        drawing::Drawing content;
        std::string activeLayer = "0";
        ReadDescription(members, content, activeLayer);
        members.Get(Entities, [&](element list) { ReadEntities(list, content); });
        content.setActiveLayer(activeLayer);
        block.content = drawing::VdfBytes(content);
    }
    drawing.addBlock(std::move(block));
}

class DocumentReader {
public:
    DocumentReader(std::string_view json, std::string_view plainLayer, PropertyColumns& columns,
                   drawing::Drawing& drawing)
        : json_(json), drawing_(drawing), features_(drawing, plainLayer, columns) {}

    /// Reads the document, which starts at `offset`.
    void Read(std::size_t offset);

private:
    /// The outermost members read so far.
    struct Outline {
        std::string type = "FeatureCollection";
        bool isDescribed = false;  ///< the member `drawing` has been read
        bool hasFeatures = false;
        std::optional<std::size_t> featuresLater;  ///< positions of the features still to be read
    };

    void ReadMember(std::string_view quotedName, JsonScanner& scanner, Outline& outline);
    void ReadFeatures(JsonScanner& scanner);
    /// Parses a feature or geometry and adds it with `add`.
    void ReadFeature(Part feature, void (FeatureReader::*add)(element));

    std::string_view json_;
    drawing::Drawing& drawing_;
    JsonParser parser_;
    FeatureReader features_;
    std::string activeLayer_ = "0";
    std::uint64_t featureNumber_ = 0;
};

Part NextPart(JsonScanner& scanner) {
    std::size_t offset = scanner.Position();
    return {scanner.Value(), offset};
}

void DocumentReader::Read(std::size_t offset) {
    Outline outline;
    JsonScanner scanner(json_, offset);
    scanner.Members([&](std::string_view quotedName) { ReadMember(quotedName, scanner, outline); });
    scanner.ExpectEnd();
    if (outline.type != "FeatureCollection") {
        ReadFeature({json_.substr(offset), offset},
                    outline.type == "Feature" ? &FeatureReader::AddFeature : &FeatureReader::AddGeometry);
    } else if (outline.featuresLater) {
        JsonScanner features(json_, *outline.featuresLater);
        ReadFeatures(features);
    } else if (!outline.hasFeatures) {
        throw platform::ReadError("", "", "the FeatureCollection has no member \"features\"");
    }
    drawing_.setActiveLayer(activeLayer_);
}

void DocumentReader::ReadMember(std::string_view quotedName, JsonScanner& scanner, Outline& outline) {
    std::size_t offset = scanner.Position();
    auto place = [&] { return platform::ReadError::AtByte(offset); };
    std::string name = Placed(place, [&] { return std::string(TextOf(parser_.Parse(quotedName))); });
    if (name == "features") {
        if (outline.hasFeatures) throw platform::ReadError("", place(), "a second member \"features\"");
        outline.hasFeatures = true;
        // Layers have the order of the description, so it must be read first.
        if (outline.isDescribed) return ReadFeatures(scanner);
        outline.featuresLater = offset;
        scanner.Value();
        return;
    }
    std::string_view text = scanner.Value();
    Placed(place, [&] {
        element value = parser_.Parse(text);
        if (name == "type") outline.type = TextOf(value);
        if (name != "drawing") return;
        if (!value.is_null()) ReadDescription(DescriptionOf(value, "drawing."), drawing_, activeLayer_);
        outline.isDescribed = true;
    });
}

void DocumentReader::ReadFeatures(JsonScanner& scanner) {
    scanner.Elements([&] { ReadFeature(NextPart(scanner), &FeatureReader::AddFeature); });
}

void DocumentReader::ReadFeature(Part feature, void (FeatureReader::*add)(element)) {
    ++featureNumber_;
    auto place = [&] { return "feature " + std::to_string(featureNumber_) + " at " + feature.Place(); };
    Placed(place, [&] { (features_.*add)(parser_.Parse(feature.text)); });
}

}  // namespace

void JsonToDrawing(std::string_view json, std::string_view plainLayer, drawing::Drawing& drawing) {
    std::size_t begin = json.size() - platform::WithoutByteOrderMark(json).size();
    PropertyColumns columns;
    DocumentReader(json, plainLayer, columns, drawing).Read(begin);
    if (columns.AreUniform()) return;
    columns.Settle(json.size());
    drawing.clear();
    DocumentReader(json, plainLayer, columns, drawing).Read(begin);
}

}  // namespace vexlator::vdfjson

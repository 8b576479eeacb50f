// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfjson/JsonToDrawing.h"

#include "platform/Errors.h"
#include "vdfjson/EntityReader.h"
#include "vdfjson/JsonScanner.h"
#include "vdfjson/JsonValues.h"
#include "vdfjson/PlainFeatureReader.h"

#include <optional>

namespace vexlator::vdfjson {

namespace {

/// A value that has been found but not looked into, and where it stands in the file.
struct Part {
    std::string_view text;
    std::size_t offset = 0;
    std::string Place() const { return platform::ReadError::AtByte(offset); }
};

/// Runs a step that may throw BadValue and gives its errors the place that `place()` tells.
template <typename Place, typename Step>
auto Placed(Place place, Step step) {
    try {
        return step();
    } catch (const BadValue& error) {
        throw platform::ReadError("", place(), error.what());
    }
}

class DocumentReader {
public:
    DocumentReader(std::string_view json, std::string_view plainLayer, drawing::Drawing& drawing)
        : json_(json), drawing_(drawing), entities_(drawing), plain_(drawing, plainLayer) {}

    /// Reads the document, which begins at `offset`.
    void Read(std::size_t offset);

private:
    /// The outermost members, as far as they have been read.
    struct Outline {
        std::string type = "FeatureCollection";
        bool isDescribed = false;  ///< the member `drawing` has been read
        bool hasFeatures = false;
        std::optional<std::size_t> featuresLater;  ///< where the features stand that are still to be read
    };

    void ReadMember(std::string_view quotedName, JsonScanner& scanner, Outline& outline);
    void ReadFeatures(JsonScanner& scanner);
    void ReadDescription(element description);
    /// Parses a feature or geometry and adds it with `add`.
    void ReadFeature(Part feature, void (DocumentReader::*add)(element));
    void AddFeature(element feature);
    void AddGeometry(element geometry);

    std::string_view json_;
    drawing::Drawing& drawing_;
    JsonParser parser_;
    EntityReader entities_;
    PlainFeatureReader plain_;
    std::string activeLayer_ = "0";
    std::uint64_t featureNumber_ = 0;
};

Part NextPart(JsonScanner& scanner) {
    std::size_t offset = scanner.Position();
    return {scanner.Value(), offset};
}

std::vector<std::pair<std::string, std::string>> PropertiesOf(element list) {
    std::vector<std::pair<std::string, std::string>> properties;
    for (element item : ArrayOf(list)) {
        std::vector<std::string> texts;
        for (element text : ArrayOf(item)) texts.emplace_back(TextOf(text));
        if (texts.size() != 2) throw BadValue("holds something else than [name, value]");
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

void DocumentReader::Read(std::size_t offset) {
    Outline outline;
    JsonScanner scanner(json_, offset);
    scanner.Members([&](std::string_view quotedName) { ReadMember(quotedName, scanner, outline); });
    scanner.ExpectEnd();
    if (outline.type != "FeatureCollection") {
        ReadFeature({json_.substr(offset), offset},
                    outline.type == "Feature" ? &DocumentReader::AddFeature : &DocumentReader::AddGeometry);
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
        // Layers come in the order of the description, so that has to be read first.
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
        ReadDescription(value);
        outline.isDescribed = true;
    });
}

void DocumentReader::ReadFeatures(JsonScanner& scanner) {
    scanner.Elements([&] { ReadFeature(NextPart(scanner), &DocumentReader::AddFeature); });
}

void DocumentReader::ReadDescription(element description) {
    enum DrawingMember : std::size_t { Properties, Layers, ActiveLayer, Blocks };
    static constexpr std::array<std::string_view, 4> names = {"properties", "layers", "activeLayer",
                                                              "blocks"};
    if (description.is_null()) return;
    Members members(ObjectOf(description), names, "drawing.");
    if (members.Has(Properties)) drawing_.properties() = members.Get(Properties, PropertiesOf);
    if (members.Has(Layers))
        members.Get(Layers, [&](element list) {
            for (element layer : ArrayOf(list)) ReadLayer(layer, drawing_);
        });
    if (members.Has(Blocks))
        members.Get(Blocks, [&](element list) {
            for (element name : ArrayOf(list)) drawing_.addBlock({std::string(TextOf(name)), ""});
        });
    if (members.Has(ActiveLayer)) activeLayer_ = members.Text(ActiveLayer);
}

void DocumentReader::ReadFeature(Part feature, void (DocumentReader::*add)(element)) {
    ++featureNumber_;
    auto place = [&] { return "feature " + std::to_string(featureNumber_) + " at " + feature.Place(); };
    Placed(place, [&] { (this->*add)(parser_.Parse(feature.text)); });
}

void DocumentReader::AddFeature(element value) {
    enum FeatureMember : std::size_t { Type, Id, Geometry, Properties, Vdf };
    static constexpr std::array<std::string_view, 5> names = {"type", "id", "geometry", "properties", "vdf"};
    Members feature(ObjectOf(value), names);
    if (feature.Has(Type) && feature.Text(Type) != "Feature") throw BadValue("type: is not \"Feature\"");
    std::optional vdf = feature.Object(Vdf);
    drawing::Entity entity =
        vdf ? entities_.Add(*vdf) : plain_.Add(feature.Object(Geometry), feature.Object(Properties));
    if (feature.Has(Id) && feature.At(Id).is_string()) drawing_.setHandle(entity, feature.Text(Id));
}

void DocumentReader::AddGeometry(element value) {
    plain_.Add(ObjectOf(value), std::nullopt);
}

}  // namespace

void JsonToDrawing(std::string_view json, std::string_view plainLayer, drawing::Drawing& drawing) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    std::size_t begin = json.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    DocumentReader(json, plainLayer, drawing).Read(begin);
}

}  // namespace vexlator::vdfjson

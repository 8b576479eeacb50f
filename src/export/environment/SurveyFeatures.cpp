// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/environment/SurveyFeatures.h"

#include "export/FeaturePlace.h"
#include "export/photos/PhotoNames.h"
#include "export/photos/Photos.h"
#include "platform/Files.h"
#include "util/Counted.h"
#include "util/Numbers.h"
#include "util/Text.h"

namespace vexlator::exporter {

namespace {

constexpr int gridDecimals = 3;

/// The first value, else the number of the feature.
std::string HeadingOf(drawing::EntityView entity, const std::string& code, std::uint64_t number) {
    drawing::ValueCursor values = entity.xproperties().values();
    std::string_view first = values.AtEnd() ? "" : util::Trim(values.Next());
    return first.empty() ? code + " " + std::to_string(number) : std::string(first);
}

}  // namespace

SurveyFeatures::SurveyFeatures(config::Run& run, const ExportLayer& layer, std::string_view drawingName,
                               SurveyPhotos& photos, platform::OutputFile& file)
    : run_(run),
      layer_(layer),
      photos_(photos),
      page_(file, layer.layer.name,
            std::string(drawingName) + ", " + util::Counted(layer.entities, "feature")) {}

void SurveyFeatures::Write(const LayerPart& part) {
    for (drawing::EntityView entity : part) AddFeature(entity);
}

std::uint64_t SurveyFeatures::Finish() {
    page_.Finish();
    return features_;
}

void SurveyFeatures::AddFeature(drawing::EntityView entity) {
    page_.BeginFeature(HeadingOf(entity, layer_.layer.name, ++features_));
    AddValues(entity);
    AddPlace(entity);
    AddPhotos(entity);
    page_.EndFeature();
}

void SurveyFeatures::AddValues(drawing::EntityView entity) {
    drawing::XPropertiesView properties = entity.xproperties();
    drawing::ValueCursor values = properties.values();
    for (std::size_t i = 0; !values.AtEnd(); ++i) {
        std::string_view value = values.Next();
        std::uint64_t replaced = page_.AddValue(properties.name(i), value);
        if (replaced > 0)
            run_.Losses().Count(config::LossReport::Kind::Replaced, layer_.layer.name, properties.name(i),
                                replaced);
    }
    if (!entity.text().empty()) page_.AddValue("Text", entity.text());
}

void SurveyFeatures::AddPlace(drawing::EntityView entity) {
    if (entity.vertexCount() == 0) return;
    FeaturePlace place = PlaceOf(entity);
    std::string text =
        util::FormatFixed(place.at.x, gridDecimals) + ", " + util::FormatFixed(place.at.y, gridDecimals);
    if (place.height != 0) text += ", " + util::FormatFixed(place.height, gridDecimals);
    page_.AddValue(place.height != 0 ? "Easting, northing, level" : "Easting, northing", text);
}

void SurveyFeatures::AddPhotos(drawing::EntityView entity) {
    for (drawing::ValueCursor values = entity.xproperties().values(); !values.AtEnd();) {
        std::string_view value = values.Next();
        if (!NamesPhoto(value)) continue;
        std::string name = PhotoName(value, photos_.exportFolder);
        if (AddPhoto(value, name)) continue;
        page_.AddMissing(name);
        ++photos_.missing;
    }
}

/// Values are names below the folder, or full paths, of which the last part counts.
bool SurveyFeatures::AddPhoto(std::string_view value, const std::string& name) {
    std::string path = photos_.source.Find(PhotoPathParts(value));
    if (path.empty()) path = photos_.source.Find(PhotoPathParts(name));
    if (path.empty()) return false;
    try {
        return page_.AddPicture(platform::MappedFile(path).Text(), name);
    } catch (const platform::ReadError&) {
        return false;
    }
}

}  // namespace vexlator::exporter

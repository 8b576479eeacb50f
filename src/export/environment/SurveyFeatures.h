// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "export/LayerLoop.h"
#include "export/photos/PhotoFolders.h"
#include "formats/html/SurveyPage.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::exporter {

/// Where photographs of a survey are looked for.
struct SurveyPhotos {
    PhotoSource source;
    std::string exportFolder;  ///< which values may name in front of a photograph
    std::uint64_t missing = 0;
};

/// Writes the page of one layer.
class SurveyFeatures {
public:
    SurveyFeatures(config::Run& run, const ExportLayer& layer, std::string_view drawingName,
                   SurveyPhotos& photos, platform::OutputFile& file);

    void Write(const LayerPart& part);
    /// Returns the number of features.
    std::uint64_t Finish();

private:
    void AddFeature(drawing::EntityView entity);
    void AddValues(drawing::EntityView entity);
    void AddPlace(drawing::EntityView entity);
    void AddPhotos(drawing::EntityView entity);
    bool AddPhoto(std::string_view value, const std::string& name);

    config::Run& run_;
    const ExportLayer& layer_;
    SurveyPhotos& photos_;
    formats::SurveyPage page_;
    std::uint64_t features_ = 0;
};

}  // namespace vexlator::exporter

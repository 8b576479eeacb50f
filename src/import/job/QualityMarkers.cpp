// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/QualityMarkers.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <optional>
#include <string>
#include <vector>

namespace vexlator::importer {

namespace {

constexpr std::string_view layerName = "$QA";
constexpr int accuracyDecimals = 3;

struct Accuracy {
    double realTime = 0, postProcessed = 0, radius = 0;
};

/// Two numbers, as in 0.020[0.012]; other brackets are ignored.
Accuracy BracketedAccuracy(std::string_view text) {
    std::string numbers = util::ReplaceAll(util::ReplaceAll(text, "[", ","), "]", "");
    Accuracy accuracy;
    accuracy.realTime = util::GetCommaNumber(0, numbers);
    accuracy.postProcessed = util::GetCommaNumber(1, numbers);
    accuracy.radius = accuracy.postProcessed;
    return accuracy;
}

std::optional<Accuracy> AccuracyOf(std::string_view quality) {
    std::string_view text = util::GetField(3, quality, "/");
    if (text.find('[') != std::string_view::npos) return BracketedAccuracy(text);
    if (util::CountOf(quality, "/") != 3) return std::nullopt;
    double realTime = util::NumberOf(text);
    return Accuracy{realTime, 0, realTime};
}

}  // namespace

QualityMarkers::QualityMarkers(drawing::Drawing& drawing) : drawing_(drawing) {
    std::vector<std::string> names = {"PtId", "Feature", "NumSats", "DOP", "DiffMode", "RealTimeAcc"};
    realTime_ = drawing.attributeSet(names);
    names.emplace_back("PostProAcc");
    postProcessed_ = drawing.attributeSet(names);
    drawing.setActiveLayer(layerName);
}

void QualityMarkers::AddQualityMarker(const drawing::Point& position, std::string_view quality,
                                      std::string_view pointNumber, std::string_view feature) {
    std::optional<Accuracy> accuracy = AccuracyOf(quality);
    if (!accuracy) return;
    drawing_.addCircle(position, accuracy->radius).setLayerName(layerName);
    bool isPostProcessed = accuracy->postProcessed > 0;
    drawing_.beginValues(isPostProcessed ? postProcessed_ : realTime_);
    drawing_.appendValue(pointNumber);
    drawing_.appendValue(feature);
    for (std::size_t part = 0; part < 3; ++part) drawing_.appendValue(util::GetField(part, quality, "/"));
    drawing_.appendValue(util::FormatFixed(accuracy->realTime, accuracyDecimals));
    if (isPostProcessed) drawing_.appendValue(util::FormatFixed(accuracy->postProcessed, accuracyDecimals));
}

}  // namespace vexlator::importer

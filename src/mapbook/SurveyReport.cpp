// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/SurveyReport.h"

#include "platform/AsciiCase.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::mapbook {

namespace {

std::string ValueOf(const drawing::Entity& entity, std::string_view attribute) {
    auto property = entity.xproperties().find(attribute);
    return property ? std::string(util::Trim(property->value(), util::lineBlanks)) : "";
}

bool IsSurveyed(const drawing::Entity& entity) {
    if (entity.kindCode() != drawing::Kind::Insert) return false;
    drawing::XProperties attributes = entity.xproperties();
    return attributes.find("MILES_START") || attributes.find("CONDITION_TOTAL");
}

}  // namespace

SurveyReport ReadSurvey(drawing::DrawingFile& file) {
    SurveyReport report;
    file.ForEachChunk([&](drawing::Drawing& chunk) {
        chunk.forEach([&](const drawing::Entity& entity) {
            if (!IsSurveyed(entity)) return;
            SurveyEntry entry;
            for (std::size_t i = 0; i < surveyColumns.size(); ++i)
                entry.values[i] = ValueOf(entity, surveyColumns[i].attribute);
            entry.direction = platform::UpperAscii(ValueOf(entity, "DIRECTION"));
            if (report.inspector.empty()) report.inspector = ValueOf(entity, "INSPECTOR");
            if (report.elr.empty()) report.elr = ValueOf(entity, "ELR");
            report.entries.push_back(std::move(entry));
        });
    });
    return report;
}

std::vector<double> ArrowsOf(std::string_view direction) {
    struct Arrows {
        std::string_view name;
        std::vector<double> degrees;
    };
    static const Arrows known[] = {{"UP", {0}},     {"DOWN", {180}},      {"LEFT", {270}},
                                   {"RIGHT", {90}}, {"UPDOWN", {0, 180}}, {"LEFTRIGHT", {270, 90}}};
    auto arrows = std::ranges::find(known, direction, &Arrows::name);
    return arrows == std::end(known) ? std::vector<double>{} : arrows->degrees;
}

}  // namespace vexlator::mapbook

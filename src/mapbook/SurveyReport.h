// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/DrawingFile.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// The report of a drainage survey: what its symbols say.
namespace vexlator::mapbook {

constexpr std::string_view surveyTitle = "Kestral Visual Drainage Survey";

struct SurveyColumn {
    std::string_view attribute, label;
    double share;  ///< of the table's width, relative to the others
};
constexpr std::array<SurveyColumn, 10> surveyColumns{{{"DATE", "Date", 1.2},
                                                      {"MILES_START", "Mileage", 0.9},
                                                      {"CHAINS_START", "Chainage", 0.9},
                                                      {"TRACK_ID", "Track ID", 1.1},
                                                      {"UP_DOWN", "Side", 0.7},
                                                      {"FUNCTION", "Function", 1.5},
                                                      {"CONDITION", "Condition", 1.3},
                                                      {"TRACK_CONDITION", "Track Cond", 1.2},
                                                      {"OTHER_FEATURES", "Other Feats", 1.6},
                                                      {"CONDITION_TOTAL", "Total Cond", 1.0}}};

/// One symbol.
struct SurveyEntry {
    std::array<std::string, surveyColumns.size()> values;
    std::string direction;  ///< UP, DOWN, LEFT, RIGHT, UPDOWN or LEFTRIGHT; others have no arrow
};

struct SurveyReport {
    std::string inspector, elr;  ///< of the first symbol that has them
    std::vector<SurveyEntry> entries;
};

/// The symbols that have a mileage or a total condition, in drawing order. @throws platform::ReadError
SurveyReport ReadSurvey(drawing::DrawingFile& file);

/// Where arrows of a direction of travel point, in degrees clockwise from up; empty for other texts.
std::vector<double> ArrowsOf(std::string_view direction);

}  // namespace vexlator::mapbook

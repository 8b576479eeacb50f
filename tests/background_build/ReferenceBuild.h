// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/classification/Classifier.h"
#include "background/styling/modGRPstyling.h"
#include "background_build/PlainPackage.h"
#include "drawing/Drawing.h"

#include <string>

namespace vexlator::test {

/// What a build is told beside the drawing.
struct PlainSettings {
    bool keepSymbols = false, fullPolygons = false;
    std::string attributeList;
    background::BackgroundStyle style;
    std::string mobileStyles;  ///< text of the file
};

/// What a build has to come to, found the slow way: the entities in a list, of which the first is taken,
/// erased, and its parts appended at the end, until none is left.
PlainPackage BuildPlainly(drawing::Drawing& drawing, const PlainSettings& settings,
                          background::Classifier& classifier);

}  // namespace vexlator::test

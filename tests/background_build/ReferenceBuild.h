// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/classification/Classifier.h"
#include "background/styling/modGRPstyling.h"
#include "drawing/Drawing.h"

#include <map>
#include <string>

namespace vexlator::test {

/// What a build is told beside the drawing.
struct PlainSettings {
    bool keepSymbols = false, fullPolygons = false;
    std::string attributeList;
    background::BackgroundStyle style;
    std::string mobileStyles;  ///< text of the file
};

/// A package as texts to compare.
struct PlainPackage {
    std::map<std::string, std::string> tiles;  ///< by name of the tile file: its elements, one a line
    std::string layers, gazetteer;             ///< the files as they are
};

/// What a build has to come to, found the slow way: the entities in a list, of which the first is taken,
/// erased, and its parts appended at the end, until none is left.
PlainPackage BuildPlainly(drawing::Drawing& drawing, const PlainSettings& settings,
                          background::Classifier& classifier);

/// What the files of a package hold.
PlainPackage ReadBack(const std::string& packageFile);

}  // namespace vexlator::test

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/dbf/PlaceColumns.h"

#include "export/FeaturePlace.h"
#include "util/Numbers.h"

namespace vexlator::exporter {

namespace {

constexpr int gridDecimals = 3, placeWidth = 15;

}  // namespace

std::vector<formats::DbfColumn> PlaceColumns(bool withHeight) {
    std::vector<formats::DbfColumn> columns{{"EASTING", 'N', placeWidth, gridDecimals},
                                            {"NORTHING", 'N', placeWidth, gridDecimals}};
    if (withHeight) columns.push_back({"LEVEL", 'N', placeWidth, gridDecimals});
    return columns;
}

void ReadPlace(drawing::EntityView entity, std::vector<std::string>& values) {
    values.clear();
    if (entity.vertexCount() == 0) return;
    FeaturePlace place = PlaceOf(entity);
    for (double value : {place.at.x, place.at.y, place.height})
        values.push_back(util::FormatFixed(value, gridDecimals));
}

}  // namespace vexlator::exporter

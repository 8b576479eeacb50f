// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "gis/SourceAttributes.h"

#include <cstdint>
#include <ogr_api.h>
#include <span>
#include <string>
#include <vector>

namespace vexlator::gis {

/// Features of a source's layer become entities: points symbols, lines polylines, and every ring of an area a
/// closed and filled polyline. Rings are marked by surfaceName and holeName.
class SourceEntities {
public:
    struct Options {
        std::string symbol;             ///< block of points; "" for none
        double smallArea = 0;           ///< areas that are nowhere wider become symbols; 0: none
        std::uint64_t sourceBytes = 0;  ///< size of the source: its drawing must not be many times as large
    };

    /// The layer and its colour are the drawing's active ones.
    SourceEntities(drawing::Drawing& drawing, SourceAttributes& attributes, Options options);

    /// False if the feature has no coordinates, and adds nothing. @throws platform::ReadError
    bool Add(OGRFeatureH feature);

private:
    enum class PartKind { Point, Line, Ring, Hole };
    struct Part {
        OGRGeometryH geometry;
        PartKind kind;
        std::uint64_t surface;
    };

    void Collect(OGRGeometryH geometry);
    void AddPart(const Part& part);
    void AddVertices(OGRGeometryH geometry);
    void AddAttributes(std::size_t part, std::size_t bytes);
    bool BecomesSymbol() const;
    void AddSymbol(double x, double y, double z);
    bool AddLabel(OGRFeatureH feature);

    drawing::Drawing& drawing_;
    SourceAttributes& attributes_;
    Options options_;
    drawing::Style pointStyle_, lineStyle_, areaStyle_;
    std::vector<Part> parts_;  ///< of the current feature
    std::uint64_t surfaces_ = 0;
    std::uint64_t copiedBytes_ = 0;
    std::vector<double> heights_;
};

}  // namespace vexlator::gis

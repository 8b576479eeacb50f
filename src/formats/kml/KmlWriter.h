// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

/// Writes KML 2.1 documents. Sources: Google's KML 2.1 Reference, entries Document, Style, Placemark, Point,
/// LineString, Polygon and coordinates; the schema kml21.xsd.
namespace vexlator::formats {

enum class KmlShape {
    Point,  ///< one position
    Line,   ///< two or more
    Area    ///< a ring: four or more, the last like the first
};

/// Writes one document of placemarks into a file that the caller commits. A placemark is BeginPlacemark(),
/// the rows of its description, EndDescription(), at most one AddGeometry(), EndPlacemark(). Texts may hold
/// anything.
/// @throws platform::WriteError
class KmlWriter {
public:
    /// Number of decimals of heights; nothing: their shortest form.
    KmlWriter(platform::OutputFile& file, std::string_view documentName, std::optional<int> heightDecimals);

    void BeginPlacemark(std::string_view name);
    /// A row of the description. Returns the number of characters that XML cannot hold; they become "?".
    std::uint64_t AddValue(std::string_view value);
    /// A row with a picture.
    void AddImage(std::string_view address);
    /// `fullSize` is the target of a link below the rows; empty: no link.
    void EndDescription(std::string_view fullSize = "");
    /// x is the longitude, y the latitude, in decimal degrees; heights in metres, one per position.
    void AddGeometry(KmlShape shape, std::span<const util::PlanePoint> positions,
                     std::span<const double> heights);
    void EndPlacemark();
    /// The number of placemarks with a geometry.
    std::uint64_t Geometries() const { return geometries_; }
    /// Later text goes to another file.
    void GoOnIn(platform::OutputFile& file) { file_ = &file; }
    /// Ends the document.
    void Finish();

private:
    void AddCoordinates(std::span<const util::PlanePoint> positions, std::span<const double> heights);

    platform::OutputFile* file_;
    std::optional<int> heightDecimals_;
    std::uint64_t geometries_ = 0;
};

}  // namespace vexlator::formats

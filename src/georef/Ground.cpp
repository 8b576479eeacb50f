// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/Ground.h"

#include "georef/AngleReading.h"
#include "georef/GridLetters.h"
#include "util/Angles.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>
#include <vector>

namespace vexlator::georef {

namespace {

constexpr double mostLatitude = 90, mostLongitude = 180;

std::string DegreesText(double value) {
    constexpr int decimals = 6;
    return util::FormatFixed(std::fabs(value), decimals);
}

Sentence LatitudeInWords(double value) {
    return value < 0 ? InWords("vexlator", "latitude %1 S").With({DegreesText(value)})
                     : InWords("vexlator", "latitude %1 N").With({DegreesText(value)});
}

Sentence LongitudeInWords(double value) {
    return value < 0 ? InWords("vexlator", "longitude %1 W").With({DegreesText(value)})
                     : InWords("vexlator", "longitude %1 E").With({DegreesText(value)});
}

GroundReading Grid(util::PlanePoint place, bool isOrderKnown, Sentence before = {}) {
    constexpr int decimals = 3;
    before += InWords("vexlator", "easting %1, northing %2")
                  .With({util::FormatFixed(place.x, decimals), util::FormatFixed(place.y, decimals)});
    return {GroundKind::Grid, place, isOrderKnown, before};
}

GroundReading Degrees(util::PlanePoint place, bool latitudeFirst, bool isOrderKnown) {
    Sentence said = PlaceInWords(place, latitudeFirst);
    if (!isOrderKnown) said += InWords("vexlator", " (assuming that the latitude comes first)");
    return {GroundKind::Degrees, place, isOrderKnown, said};
}

bool IsNorthing(char letter) {
    return letter == 'N' || letter == 'S';
}

/// Easting and northing with letters, too large for degrees.
bool AreMetres(const std::vector<AngleValue>& values) {
    return std::all_of(values.begin(), values.end(),
                       [](const AngleValue& value) { return value.IsPlain(); }) &&
           std::any_of(values.begin(), values.end(),
                       [](const AngleValue& v) { return v.parts[0].value > mostLongitude; });
}

GroundReading FromLetters(const std::vector<AngleValue>& values) {
    bool northFirst = IsNorthing(values[0].hemisphere);
    if (!values[0].hemisphere || !values[1].hemisphere || northFirst == IsNorthing(values[1].hemisphere))
        throw NotUnderstood{InWords("vexlator", "one value needs N or S, the other E or W")};
    util::PlanePoint place{values[0].Degrees(), values[1].Degrees()};
    if (northFirst) std::swap(place.x, place.y);
    if (AreMetres(values)) return Grid(place, true);
    if (std::fabs(place.y) > mostLatitude)
        throw NotUnderstood{InWords("vexlator", "a latitude beyond 90 degrees")};
    if (std::fabs(place.x) > mostLongitude)
        throw NotUnderstood{InWords("vexlator", "a longitude beyond 180 degrees")};
    return Degrees(place, northFirst, true);
}

GroundReading FromValues(const std::vector<AngleValue>& values) {
    if (values.size() != 2) throw NotUnderstood{InWords("vexlator", "a position is two values")};
    if (values[0].hemisphere || values[1].hemisphere) return FromLetters(values);
    double first = values[0].Degrees(), second = values[1].Degrees();
    bool latitudeFirst = std::fabs(first) <= mostLatitude, longitudeFirst = std::fabs(second) <= mostLatitude;
    bool canBeDegrees =
        std::max(std::fabs(first), std::fabs(second)) <= mostLongitude && (latitudeFirst || longitudeFirst);
    if (!canBeDegrees) {
        if (values[0].IsPlain() && values[1].IsPlain()) return Grid({first, second}, false);
        throw NotUnderstood{InWords("vexlator", "angles beyond 90 and 180 degrees")};
    }
    bool isOrderKnown = latitudeFirst != longitudeFirst;
    if (latitudeFirst) return Degrees({second, first}, true, isOrderKnown);
    return Degrees({first, second}, false, isOrderKnown);
}

/// The system's own angle texts, with a full stop before the minutes.
std::optional<GroundReading> FromAngleTexts(std::string_view text) {
    std::string_view separator = text.find(',') != std::string_view::npos ? "," : " ";
    std::string_view first = util::GetField(0, text, separator);
    std::string_view second = util::Trim(text.substr(std::min(first.size() + 1, text.size())));
    bool areMarked = first.find('.') < first.find('\'') && first.find('\'') != std::string_view::npos &&
                     second.find('\'') != std::string_view::npos;
    std::optional<double> latitude = util::ParseAngleText(first), longitude = util::ParseAngleText(second);
    if (!areMarked || !latitude || !longitude) return std::nullopt;
    return Degrees({*longitude * util::degreesPerRadian, *latitude * util::degreesPerRadian}, true, false);
}

std::optional<double> WholeNumber(std::string_view text) {
    text = util::Trim(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

}  // namespace

Sentence PlaceInWords(util::PlanePoint degrees, bool latitudeFirst) {
    Sentence latitude = LatitudeInWords(degrees.y), longitude = LongitudeInWords(degrees.x);
    Sentence comma = Plainly(", ");
    return latitudeFirst ? latitude + comma + longitude : longitude + comma + latitude;
}

GroundReading ReadGround(std::string_view text) {
    constexpr std::size_t longest = 200;
    text = util::Trim(text);
    if (text.empty()) return {GroundKind::None, {}, false, InWords("vexlator", "no position yet")};
    if (text.size() > longest)
        return {GroundKind::None,
                {},
                false,
                InWords("vexlator", "%1 is too long for a position").With({Quote(text)})};
    if (std::optional<GridSquare> square = ReadGridLetters(text))
        return Grid(
            square->corner, true,
            InWords("vexlator", "corner of the square of %1 m: ").With({util::FormatShortest(square->side)}));
    if (std::optional<GroundReading> reading = FromAngleTexts(text)) return *reading;
    try {
        return FromValues(ReadAngleValues(text));
    } catch (const NotUnderstood& problem) {
        return {GroundKind::None, {}, false, problem.reason};
    }
}

std::optional<util::PlanePoint> ReadNumberPair(std::string_view text) {
    std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    std::optional<double> x = WholeNumber(text.substr(0, comma)), y = WholeNumber(text.substr(comma + 1));
    if (!x || !y) return std::nullopt;
    return util::PlanePoint{*x, *y};
}

}  // namespace vexlator::georef

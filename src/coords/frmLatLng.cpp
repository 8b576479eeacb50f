// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/frmLatLng.h"

#include "coords/ConvertArray.h"
#include "coords/CorrectionGrid.h"
#include "coords/NoConversion.h"
#include "coords/TransformationSetting.h"
#include "coords/Transformer.h"
#include "platform/Paths.h"
#include "util/Angles.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <utility>
#include <vector>

namespace vexlator::coords {

namespace {

std::unique_ptr<Backend> ChooseBackend(config::Run& run) {
    using Kind = TransformationSetting::Kind;
    TransformationSetting setting = ReadTransformationSetting(run);
    if (setting.kind == Kind::Degrees) return std::make_unique<NoConversion>();
    GridFolders folders = GridFoldersOf(run);
    if (setting.kind == Kind::Definition)
        return std::make_unique<Transformer>(std::move(setting), std::move(folders), run.Ui());
    if (setting.isSet)
        run.Ui().ShowMessage(platform::NativePath(setting.value) +
                             ": there is no such transformation file, or it is empty, and it is not a "
                             "definition; the correction grid of the British National Grid is used");
    return std::make_unique<CorrectionGrid>(folders, run.Ui());
}

/// Keeps six decimals of a degree unchanged through text.
constexpr int angleTextDecimals = 9;
constexpr int degreeDecimals = 6;

std::string LatLngText(double degrees, bool asAngleText) {
    if (!asAngleText) return util::FormatFixed(degrees, degreeDecimals);
    return util::FormatAngleText(degrees / util::degreesPerRadian, angleTextDecimals);
}

/// The whole text as a number.
std::optional<double> DecimalDegrees(std::string_view text) {
    text = util::Trim(text);
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> DegreesOf(std::string_view text) {
    if (text.find('\'') == std::string_view::npos) return DecimalDegrees(text);
    std::optional<double> radians = util::ParseAngleText(text);
    if (!radians) return std::nullopt;
    return *radians * util::degreesPerRadian;
}

/// A grid value or height. Without a format, the rounding errors of angle texts are removed.
std::string GridText(double value, std::optional<int> decimals) {
    constexpr int noiseFreeDecimals = 9;
    if (decimals) return util::FormatFixed(value, *decimals);
    return util::FormatShortest(util::RoundFixed(value, noiseFreeDecimals));
}

/// One point of a conversion.
struct Position {
    util::PlanePoint point;
    double height = 0;
};

bool ConvertPosition(Backend& backend, Direction direction, Position& position) {
    backend.Convert(direction, {{&position.point, 1}, {&position.height, 1}});
    return std::isfinite(position.point.x) && std::isfinite(position.point.y) &&
           std::isfinite(position.height);
}

std::size_t ConvertWhole(Backend& backend, Direction direction, Coordinates coordinates, Rounding rounding) {
    if (!coordinates.heights.empty() && coordinates.heights.size() != coordinates.points.size())
        throw std::invalid_argument("as many heights as points, or none");
    std::optional<int> grid = backend.GridDecimals();
    Decimals decimals;
    if (rounding == Rounding::AsText)
        decimals = {direction == Direction::ToLatLng ? degreeDecimals : grid, grid};
    return ConvertArray(backend, direction, coordinates, decimals);
}

}  // namespace

frmLatLng::frmLatLng(config::Run& run) : backend_(ChooseBackend(run)) {}

frmLatLng::~frmLatLng() = default;

std::optional<frmLatLng::Texts> frmLatLng::GridToLatLng(double easting, double northing, double height,
                                                        bool degreesAsText) {
    Position position{{easting, northing}, height};
    if (!ConvertPosition(*backend_, Direction::ToLatLng, position)) return std::nullopt;
    return Texts{LatLngText(position.point.y, degreesAsText), LatLngText(position.point.x, degreesAsText),
                 GridText(position.height, backend_->GridDecimals())};
}

std::optional<frmLatLng::Texts> frmLatLng::LatLngToGrid(std::string_view latitude, std::string_view longitude,
                                                        std::string_view height) {
    std::optional<double> y = DegreesOf(latitude), x = DegreesOf(longitude);
    if (!x || !y) return std::nullopt;
    Position position{{*x, *y}, util::NumberOf(height)};
    if (!ConvertPosition(*backend_, Direction::ToGrid, position)) return std::nullopt;
    std::optional<int> decimals = backend_->GridDecimals();
    return Texts{GridText(position.point.x, decimals), GridText(position.point.y, decimals),
                 decimals ? GridText(position.height, decimals) : std::string(height)};
}

std::size_t frmLatLng::GridToLatLng(std::span<util::PlanePoint> points, std::span<double> heights,
                                    Rounding rounding) {
    return ConvertWhole(*backend_, Direction::ToLatLng, {points, heights}, rounding);
}

std::size_t frmLatLng::LatLngToGrid(std::span<util::PlanePoint> points, std::span<double> heights,
                                    Rounding rounding) {
    return ConvertWhole(*backend_, Direction::ToGrid, {points, heights}, rounding);
}

std::optional<int> frmLatLng::HeightDecimals() const {
    return backend_->GridDecimals();
}

std::string frmLatLng::HeightText(double height) const {
    return GridText(height, backend_->GridDecimals());
}

std::string frmLatLng::Description() {
    return backend_->Description();
}

}  // namespace vexlator::coords

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "ui/UserInterface.h"

#include <optional>
#include <string>
#include <string_view>

/// Angles and plane geometry. Radians unless stated; bearings are whole-circle, clockwise from grid north.
namespace vexlator::util {

constexpr double degreesPerRadian = 57.2957795130823;

double Distance(double x1, double y1, double x2, double y2);
/// From the first point to the second, in [0, 2 pi). Identical points give 0 and, when `show` is given, the
/// message "RO sameas Occupied - assuming 0".
double Bearing(double x1, double y1, double x2, double y2, ui::UserInterface* show = nullptr);
struct PlanePoint {
    double x = 0, y = 0;
    bool operator==(const PlanePoint&) const = default;
};
PlanePoint PolarPoint(double x, double y, double bearing, double distance);

/// DDD.MM'SS" and, when `decimals` is given, that many decimals of a second after the quote.
std::string FormatAngleText(double radians, std::optional<int> decimals = std::nullopt);
/// The inverse of FormatAngleText, in radians; nothing when the text is not of that form.
std::optional<double> ParseAngleText(std::string_view text);

}  // namespace vexlator::util

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The form of the points in a coordinate element.
struct CoordinateFormat {
    /// Number of values of a point in a list without marks between points; allInOne: the list is one point.
    std::size_t valuesPerPoint = 2;
    static constexpr std::size_t allInOne = 0;
    /// Points are marked: `component` separates values, `tuple` separates points (a blank means any white
    /// space).
    bool marked = false;
    char component = ',', tuple = ' ', decimal = '.';
    /// The separators are unknown: a first point without "," means that blanks separate values.
    bool isGuessed = false;
    /// Every value must be a number and every point complete. If false, a text counts as the number at its
    /// start, and the number of points is rounded.
    bool strict = true;
};

/// Converts coordinate text, in pieces of any length, to points. Values after the second of a point are
/// skipped.
class CoordinateText {
public:
    /// Appends to `points`, which must live until End().
    void Begin(const CoordinateFormat& format, std::vector<util::PlanePoint>& points);
    /// @throws platform::ReadError without file and place
    void Append(std::string_view piece);
    /// @throws platform::ReadError without file and place
    void End();

private:
    bool Separates(char c) const;
    const char* TakeShortDecimals(const char* at, const char* end);
    void TakeRest();
    void Take(std::string_view token);
    void TakeTuple(std::string_view token);
    std::string_view NextValue(std::string_view& tuple) const;
    void TakeValue(double value);
    double NumberIn(std::string_view token);
    void RoundLastPoint();

    CoordinateFormat format_;
    std::vector<util::PlanePoint>* points_ = nullptr;
    std::size_t before_ = 0;  ///< number of points at the start
    std::size_t index_ = 0;   ///< number of values of the current point
    double x_ = 0;
    std::string rest_;  ///< the start of a token that the next piece may continue
};

}  // namespace vexlator::formats

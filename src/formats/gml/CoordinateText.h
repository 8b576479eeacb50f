// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// How a coordinate element writes its points.
struct CoordinateFormat {
    /// Values of one point in a list that does not mark where a point ends; allInOne: the list is one point.
    std::size_t valuesPerPoint = 2;
    static constexpr std::size_t allInOne = 0;
    /// Points are marked: values stand between `component`s, points between `tuple`s (a blank stands for
    /// any white space).
    bool marked = false;
    char component = ',', tuple = ' ', decimal = '.';
    /// Nobody said which is which: a first point without "," shows that blanks stand between values.
    bool isGuessed = false;
    /// Every value must be a number and every point whole. Otherwise a text counts as the number that it
    /// begins with, and the number of points is rounded.
    bool strict = true;
};

/// Turns coordinate text, which comes in pieces of any length, into points. Values beyond the second of a
/// point are skipped.
class CoordinateText {
public:
    /// Points are added to `points`, which must live until End().
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
    std::size_t before_ = 0;  ///< points that were there
    std::size_t index_ = 0;   ///< values of the current point
    double x_ = 0;
    std::string rest_;  ///< the beginning of a token that the next piece may go on with
};

}  // namespace vexlator::formats

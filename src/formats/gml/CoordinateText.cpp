// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/CoordinateText.h"

#include "formats/gml/GmlElements.h"
#include "platform/Errors.h"
#include "util/Numbers.h"
#include "util/ShortDecimal.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

namespace vexlator::formats {

namespace {

/// Far longer than any number. A text without separators must not fill the memory.
constexpr std::size_t longestToken = 4096;
constexpr std::size_t mostShown = 40;

bool IsSpace(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t';
}

[[noreturn]] void Fail(const std::string& reason) {
    throw platform::ReadError("", "", reason);
}

}  // namespace

void CoordinateText::Begin(const CoordinateFormat& format, std::vector<util::PlanePoint>& points) {
    format_ = format;
    if (!format_.marked) format_.tuple = ' ';
    points_ = &points;
    before_ = points.size();
    index_ = 0;
    rest_.clear();
}

bool CoordinateText::Separates(char c) const {
    return format_.tuple == ' ' ? IsSpace(c) : c == format_.tuple;
}

void CoordinateText::Append(std::string_view piece) {
    auto separates = [this](char c) { return Separates(c); };
    const char* at = piece.data();
    const char* end = at + piece.size();
    while (true) {
        if (!format_.marked && rest_.empty()) at = TakeShortDecimals(at, end);
        const char* stop = std::find_if(at, end, separates);
        if (stop == end) break;
        if (!rest_.empty()) {
            rest_.append(at, stop);
            TakeRest();
        } else if (stop > at) {
            std::string_view token(at, static_cast<std::size_t>(stop - at));
            if (format_.isGuessed) {
                rest_ = token;
                TakeRest();
            } else {
                Take(token);
            }
        }
        at = stop + 1;
    }
    rest_.append(at, at + std::min<std::ptrdiff_t>(end - at, longestToken + 1));
    if (rest_.size() <= longestToken) return;
    if (format_.strict) Fail("a coordinate of more than 4,096 characters");
    rest_.resize(longestToken);
}

/// Takes values of the simple form; returns the start of the first other one.
const char* CoordinateText::TakeShortDecimals(const char* at, const char* end) {
    double value = 0;
    while (const char* stop = util::ReadShortDecimal(at, end, value)) {
        if (stop == end || !IsSpace(*stop)) break;
        TakeValue(value);
        at = stop + 1;
    }
    return at;
}

/// A first point that proves to be a value continues after the blank.
void CoordinateText::TakeRest() {
    bool isPoint = rest_.find(format_.component) != std::string::npos;
    if (std::exchange(format_.isGuessed, false) && !isPoint) {
        std::swap(format_.component, format_.tuple);
        rest_ += ' ';
        return;
    }
    Take(rest_);
    rest_.clear();
}

void CoordinateText::Take(std::string_view token) {
    if (format_.marked)
        TakeTuple(token);
    else
        TakeValue(NumberIn(token));
}

void CoordinateText::TakeTuple(std::string_view token) {
    token = util::Trim(token, util::lineBlanks);
    if (token.empty()) return;
    index_ = 0;
    for (std::string_view left = token; !left.empty();) TakeValue(NumberIn(NextValue(left)));
    if (index_ < 2) Fail("the point \"" + std::string(token.substr(0, mostShown)) + "\" has only one value");
}

void CoordinateText::TakeValue(double value) {
    if (index_ == 0) x_ = value;
    if (index_ == 1) points_->push_back({x_, value});
    if (++index_ == format_.valuesPerPoint && !format_.marked) index_ = 0;
}

/// Takes the next value of a point without surrounding white space.
std::string_view CoordinateText::NextValue(std::string_view& tuple) const {
    bool byBlanks = format_.component == ' ';
    std::size_t size = byBlanks ? tuple.find_first_of(" \t\r\n") : tuple.find(format_.component);
    std::string_view value = tuple.substr(0, size);
    tuple.remove_prefix(std::min(value.size() + 1, tuple.size()));
    while (byBlanks && !tuple.empty() && IsSpace(tuple.front())) tuple.remove_prefix(1);
    return value;
}

double CoordinateText::NumberIn(std::string_view token) {
    std::string replaced;
    if (format_.decimal != '.') {
        replaced = token;
        std::replace(replaced.begin(), replaced.end(), format_.decimal, '.');
        token = replaced;
    }
    const char* begin = token.data();
    const char* end = begin + token.size();
    if (begin < end && *begin == '+') ++begin;
    double value = 0;
    if (util::ReadShortDecimal(begin, end, value) == end) return value;
    auto [stop, error] = std::from_chars(begin, end, value);
    if (stop == end && error == std::errc() && std::isfinite(value)) return value;
    if (!format_.strict) return util::NumberOf(token);
    Fail("\"" + std::string(token.substr(0, mostShown)) + "\" is not a coordinate");
}

void CoordinateText::End() {
    if (!rest_.empty()) Take(rest_);
    rest_.clear();
    if (format_.marked || index_ == 0) return;
    bool whole = format_.valuesPerPoint == CoordinateFormat::allInOne && index_ >= 2;
    if (whole) return;
    if (format_.strict)
        Fail("the last of " + util::GroupedCount(points_->size() - before_ + 1) + " points lacks values");
    RoundLastPoint();
}

void CoordinateText::RoundLastPoint() {
    // A half rounds to the even number of points. A third rounds down, because two thirds were counted
    // already.
    bool single = format_.valuesPerPoint == CoordinateFormat::allInOne;
    bool half = format_.valuesPerPoint == 2 && (points_->size() - before_) % 2 == 1;
    if (index_ == 1 && (single || half)) points_->push_back({x_, 0});
}

}  // namespace vexlator::formats

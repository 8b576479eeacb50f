// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/PointEntries.h"

#include "georef/Ground.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace vexlator::georef {

namespace {

/// "12P" and "12G".
struct EntryKey {
    std::size_t number = 0;
    bool isGround = false;
};

std::optional<EntryKey> KeyOf(std::string_view text) {
    text = util::Trim(text);
    EntryKey key;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), key.number);
    if (error != std::errc() || end + 1 != text.data() + text.size()) return std::nullopt;
    key.isGround = *end == 'G' || *end == 'g';
    bool isPixel = *end == 'P' || *end == 'p';
    if (!(key.isGround || isPixel) || key.number < 1 || key.number > mostPoints) return std::nullopt;
    return key;
}

bool IsComplete(const PointEntry& entry) {
    return entry.pixel.find(',') != std::string::npos && entry.ground.find(',') != std::string::npos;
}

/// The ground position in the grid. @throws FitError: why there is none
util::PlanePoint GroundOf(const std::string& typed) {
    if (std::optional<util::PlanePoint> plain = ReadNumberPair(typed)) return *plain;
    GroundReading reading = ReadGround(typed);
    if (reading.kind == GroundKind::Grid) return reading.place;
    if (reading.kind == GroundKind::Degrees)
        throw FitError(
            InWords("vexlator", "%1 is in degrees; convert it to the grid first").With({Quote(typed)}));
    throw FitError(Plainly("%1: ").With({Quote(typed)}) + reading.said);
}

ControlPoint PointOf(const PointEntry& entry, int number) {
    try {
        std::optional<util::PlanePoint> pixel = ReadNumberPair(entry.pixel);
        if (!pixel)
            throw FitError(
                InWords("vexlator", "%1 is not a pixel position of the form x,y").With({Quote(entry.pixel)}));
        return {number, *pixel, GroundOf(entry.ground)};
    } catch (const FitError& error) {
        throw FitError(InWords("vexlator", "control point %1: ").With({std::to_string(number)}) +
                       error.reason);
    }
}

}  // namespace

PointEntries ParsePointText(std::string_view text) {
    PointEntries entries;
    for (util::LineReader lines(text); !lines.AtEnd();) {
        std::string_view line = lines.ReadTextLine();
        std::size_t equals = line.find('=');
        std::optional<EntryKey> key = KeyOf(line.substr(0, equals));
        if (equals == std::string_view::npos || !key) continue;
        if (entries.size() < key->number) entries.resize(key->number);
        PointEntry& entry = entries[key->number - 1];
        std::string& value = key->isGround ? entry.ground : entry.pixel;
        if (value.empty()) value = util::Trim(line.substr(equals + 1));
    }
    return entries;
}

std::string PointText(const PointEntries& entries) {
    std::string text;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (entries[i].pixel.empty() && entries[i].ground.empty()) continue;
        std::string number = std::to_string(i + 1);
        text += number + "P=" + entries[i].pixel + "\r\n" + number + "G=" + entries[i].ground + "\r\n";
    }
    return text;
}

int AddPoint(PointEntries& entries, util::PlanePoint pixel) {
    auto free = std::find_if(entries.begin(), entries.end(),
                             [](const PointEntry& entry) { return entry.pixel.empty(); });
    if (free == entries.end()) free = entries.insert(free, PointEntry());
    free->pixel = util::FormatShortest(pixel.x) + "," + util::FormatShortest(pixel.y);
    return static_cast<int>(free - entries.begin()) + 1;
}

void RemovePoint(PointEntries& entries, int number) {
    auto index = static_cast<std::size_t>(number) - 1;
    if (index < entries.size()) entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(index));
}

std::size_t CountComplete(const PointEntries& entries) {
    auto end = std::find_if_not(entries.begin(), entries.end(), IsComplete);
    return static_cast<std::size_t>(end - entries.begin());
}

std::vector<ControlPoint> PointsForFit(const PointEntries& entries) {
    std::vector<ControlPoint> points;
    std::size_t count = CountComplete(entries);
    for (std::size_t i = 0; i < count; ++i)
        if (!entries[i].isLeftOut) points.push_back(PointOf(entries[i], static_cast<int>(i) + 1));
    return points;
}

bool AreDegrees(const PointEntries& entries) {
    constexpr double fullCircle = 360;
    auto isDegrees = [](const PointEntry& entry) {
        std::optional<util::PlanePoint> pair = ReadNumberPair(entry.ground);
        if (!pair) return ReadGround(entry.ground).kind == GroundKind::Degrees;
        return std::fabs(pair->x) < fullCircle && std::fabs(pair->y) < fullCircle;
    };
    std::size_t used = 0, count = CountComplete(entries);
    for (std::size_t i = 0; i < count; ++i) {
        if (entries[i].isLeftOut) continue;
        if (!isDegrees(entries[i])) return false;
        ++used;
    }
    return used > 0;
}

}  // namespace vexlator::georef

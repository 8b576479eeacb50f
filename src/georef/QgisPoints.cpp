// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/QgisPoints.h"

#include "georef/Ground.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace vexlator::georef {

namespace {

enum Column : std::size_t { MapX, MapY, PixelX, PixelY, Enable, ColumnCount };
using Columns = std::array<std::size_t, ColumnCount>;

bool IsHeader(std::string_view line) {
    return util::InStrNoCase(line, "mapX") > 0;
}

/// Since version 3.26, QGIS calls the pixel columns sourceX and sourceY.
Columns ColumnsOf(std::string_view header) {
    constexpr std::size_t mostColumns = 100;
    Columns columns = {0, 1, 2, 3, 4};
    for (std::size_t i = 0; i < mostColumns && !header.empty(); ++i) {
        std::string_view field = header.substr(0, header.find(','));
        header.remove_prefix(std::min(field.size() + 1, header.size()));
        std::string name = platform::UpperAscii(util::Trim(field));
        if (name == "MAPX") columns[MapX] = i;
        if (name == "MAPY") columns[MapY] = i;
        if (name == "PIXELX" || name == "SOURCEX") columns[PixelX] = i;
        if (name == "PIXELY" || name == "SOURCEY") columns[PixelY] = i;
        if (name == "ENABLE") columns[Enable] = i;
    }
    return columns;
}

/// Without what stands behind it. "" when the line has fewer fields.
std::string_view Field(std::string_view line, std::size_t index) {
    for (; index > 0 && !line.empty(); --index)
        line.remove_prefix(std::min(line.find(','), line.size() - 1) + 1);
    return util::Trim(line.substr(0, line.find(',')));
}

std::string NumberField(std::string_view line, std::size_t index, double factor, std::uint64_t number) {
    std::string_view field = Field(line, index);
    double value = 0;
    auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error != std::errc() || end != field.data() + field.size() || !std::isfinite(value))
        throw platform::ReadError("", platform::ReadError::AtLine(number),
                                  Quote(field) + " is not a number; a point has four");
    return util::FormatShortest(value * factor);
}

std::string Pair(double x, double y) {
    return util::FormatShortest(x) + "," + util::FormatShortest(y);
}

}  // namespace

PointEntries ParseQgisPoints(std::string_view text) {
    PointEntries entries;
    Columns columns = ColumnsOf("");
    for (util::LineReader lines(text); !lines.AtEnd();) {
        std::string_view line = util::Trim(lines.ReadTextLine());
        if (line.empty() || line.starts_with('#')) continue;
        if (entries.empty() && IsHeader(line)) {
            columns = ColumnsOf(line);
            continue;
        }
        if (entries.size() == mostPoints)
            throw platform::ReadError("", platform::ReadError::AtLine(lines.Line()), "too many points");
        auto number = [&](Column column, double factor = 1) {
            return NumberField(line, columns[column], factor, lines.Line());
        };
        entries.push_back({number(PixelX) + "," + number(PixelY, -1), number(MapX) + "," + number(MapY),
                           Field(line, columns[Enable]) == "0"});
    }
    return entries;
}

PointEntries ReadQgisPoints(std::string_view path) {
    std::string name = platform::NativePath(path);
    if (platform::SizeOfFile(path) > largestPointsFile)
        throw platform::ReadError(name, "", "too large for a file of control points");
    try {
        return ParseQgisPoints(platform::ReadWholeFile(path));
    } catch (const platform::ReadError& error) {
        throw error.InFile(name);
    }
}

std::string QgisPointsText(const PointEntries& entries) {
    std::string text = "mapX,mapY,sourceX,sourceY,enable,dX,dY,residual\n";
    for (const PointEntry& entry : entries) {
        std::optional<util::PlanePoint> pixel = ReadNumberPair(entry.pixel),
                                        ground = ReadNumberPair(entry.ground);
        if (!pixel || !ground) continue;
        text += Pair(ground->x, ground->y) + "," + Pair(pixel->x, -pixel->y) + "," +
                (entry.isLeftOut ? "0" : "1") + ",0,0,0\n";
    }
    return text;
}

}  // namespace vexlator::georef

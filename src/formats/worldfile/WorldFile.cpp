// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/worldfile/WorldFile.h"

#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace vexlator::formats {

namespace {

constexpr std::array<std::string_view, 6> termNames = {
    "pixel size in x", "first rotation term", "second rotation term", "pixel size in y", "X", "Y"};

std::string_view WithoutBlanks(std::string_view text) {
    constexpr std::string_view blanks = " \t\r\n";
    std::size_t begin = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(begin);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

constexpr std::size_t longestNumber = 400;

std::optional<double> Number(std::string_view line) {
    line = WithoutBlanks(line);
    if (line.size() > longestNumber) return std::nullopt;
    std::string text(line);
    if (std::count(text.begin(), text.end(), ',') == 1) std::replace(text.begin(), text.end(), ',', '.');
    const char* begin = text.data() + (text.starts_with('+') ? 1 : 0);
    const char* end = text.data() + text.size();
    double value = 0;
    auto [stop, error] = std::from_chars(begin, end, value);
    if (error != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

/// Without an exponent, because not every reader of world files accepts one.
std::string DecimalText(double value) {
    std::array<char, longestNumber> buffer;
    char* end =
        std::to_chars(buffer.data(), buffer.data() + longestNumber, value, std::chars_format::fixed).ptr;
    std::string text(buffer.data(), end);
    if (value == 0) text = "0";
    std::size_t point = text.find('.');
    if (point == std::string::npos) return text + ".000";
    std::size_t decimals = text.size() - point - 1;
    return text.append(decimals < 3 ? 3 - decimals : 0, '0');
}

}  // namespace

util::PlanePoint WorldFile::Ground(util::PlanePoint pixel) const {
    double i = pixel.x - 0.5, j = pixel.y - 0.5;
    return {a * i + b * j + c, d * i + e * j + f};
}

util::PlanePoint WorldFile::Pixel(util::PlanePoint ground) const {
    double x = ground.x - c, y = ground.y - f;
    return {(e * x - b * y) / Determinant() + 0.5, (a * y - d * x) / Determinant() + 0.5};
}

WorldFile WorldFile::Part(double column, double row) const {
    WorldFile part = *this;
    part.c += a * column + b * row;
    part.f += d * column + e * row;
    return part;
}

double WorldFile::PixelSize() const {
    return std::sqrt(std::fabs(Determinant()));
}

WorldFile ParseWorldFile(std::string_view text) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark)) text.remove_prefix(byteOrderMark.size());
    std::array<double, 6> terms{};
    util::LineReader lines(text);
    for (std::size_t i = 0; i < terms.size(); ++i) {
        auto fail = [&](const std::string& reason) {
            throw platform::ReadError("", platform::ReadError::AtLine(i + 1), reason);
        };
        if (lines.AtEnd())
            fail("a world file has six lines, this one ends before its " + std::string(termNames[i]));
        std::optional<double> value = Number(lines.ReadTextLine());
        if (!value) fail("the " + std::string(termNames[i]) + " is not a number");
        terms[i] = *value;
    }
    WorldFile world{terms[0], terms[1], terms[2], terms[3], terms[4], terms[5]};
    if (world.Determinant() == 0 || !std::isfinite(world.Determinant()))
        throw platform::ReadError("", "", "its terms give the image no area on the ground");
    return world;
}

WorldFile ReadWorldFile(std::string_view path) {
    platform::MappedFile file(path);
    try {
        return ParseWorldFile(file.Text());
    } catch (const platform::ReadError& error) {
        throw error.InFile(file.Name());
    }
}

std::string WorldFileText(const WorldFile& terms) {
    std::string text;
    for (double term : {terms.a, terms.d, terms.b, terms.e, terms.c, terms.f})
        text += DecimalText(term) + "\r\n";
    return text;
}

std::string WorldFilePath(std::string_view imagePath) {
    std::string extension = util::ExtensionOf(util::FileNameOf(imagePath));
    if (extension.size() < 2) return std::string(imagePath) + ".wld";
    char last = extension.back();
    bool isCapital = last == platform::UpperAscii(std::string(1, last))[0];
    return util::ChangeExtension(imagePath, std::string{extension.front(), last, isCapital ? 'W' : 'w'});
}

std::vector<std::string> WorldFileNames(std::string_view imagePath) {
    std::vector<std::string> names = {WorldFilePath(imagePath)};
    std::string extension = platform::UpperAscii(util::ExtensionOf(util::FileNameOf(imagePath)));
    if (extension.empty()) return names;
    if (extension != "JPG") names.push_back(std::string(imagePath) + "w");
    names.push_back(util::ChangeExtension(imagePath, "wld"));
    return names;
}

}  // namespace vexlator::formats

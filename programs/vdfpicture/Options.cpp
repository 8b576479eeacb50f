// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "vdfpicture/Options.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Paths.h"

#include <array>
#include <charconv>
#include <cmath>

namespace vexlator::vdfpicture {

namespace {

std::vector<std::string> Split(std::string_view text, char separator) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin <= text.size();) {
        std::size_t end = std::min(text.find(separator, begin), text.size());
        parts.emplace_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return parts;
}

/// The number that the whole text forms.
template <typename Number>
bool Reads(std::string_view text, Number& number) {
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

void TakeSize(const std::string& text, Options& options) {
    std::vector<std::string> sides = Split(text, 'x');
    auto isSide = [](const std::string& side, int& pixels) {
        return Reads(side, pixels) && pixels >= 1 && pixels <= largestSide;
    };
    if (sides.size() != 2 || !isSide(sides[0], options.width) || !isSide(sides[1], options.height))
        throw WrongUse{"--size " + text + ": expected WIDTHxHEIGHT in pixels, each 1 to " +
                       std::to_string(largestSide)};
}

void TakeExtent(const std::string& text, Options& options) {
    std::vector<std::string> parts = Split(text, ',');
    std::array<double, 4> sides{};
    bool isExtent = parts.size() == sides.size();
    for (std::size_t i = 0; isExtent && i < sides.size(); ++i)
        isExtent = Reads(parts[i], sides[i]) && std::isfinite(sides[i]);
    if (!isExtent || sides[0] >= sides[2] || sides[1] >= sides[3])
        throw WrongUse{"--extent " + text + ": expected minX,minY,maxX,maxY in the drawing's units"};
    options.extent = {sides[0], sides[1], sides[2], sides[3]};
}

void TakeFile(const std::string& file, Options& options) {
    if (!options.target.empty()) throw WrongUse{};
    (options.source.empty() ? options.source : options.target) = file;
}

Format FormatOf(const std::string& target) {
    std::string extension = util::ExtensionOf(target);
    if (platform::SameNoCase(extension, "png")) return Format::Png;
    if (platform::SameNoCase(extension, "svg")) return Format::Svg;
    if (platform::SameNoCase(extension, "pdf")) return Format::Pdf;
    throw WrongUse{target + ": a picture ends in .png, .svg or .pdf"};
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        auto value = [&]() -> const std::string& {
            if (++i == arguments.size()) throw WrongUse{argument + ": its value is missing"};
            return arguments[i];
        };
        if (argument == "--furniture")
            options.hasFurniture = true;
        else if (argument == "--size")
            TakeSize(value(), options);
        else if (argument == "--extent")
            TakeExtent(value(), options);
        else if (argument == "--layers")
            options.layers = Split(value(), ',');
        else if (argument.starts_with("--"))
            throw WrongUse{"there is no option " + argument};
        else
            TakeFile(argument, options);
    }
    if (options.target.empty()) throw WrongUse{};
    options.format = FormatOf(options.target);
    return options;
}

}  // namespace vexlator::vdfpicture

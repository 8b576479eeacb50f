// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/GridLetters.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace vexlator::georef {

namespace {

constexpr double squareSide = 100'000;
constexpr std::string_view digits = "0123456789";
constexpr std::string_view blanks = " \t,;";

/// Column and row of a letter in a square of five by five, from its south-west corner. There is no I.
struct Cell {
    int column = 0, row = 0;
};

Cell CellOf(char letter) {
    int index = letter - 'A' - (letter > 'I' ? 1 : 0);
    return {index % 5, 4 - index / 5};
}

/// The corner of a square of 100 km.
std::optional<util::PlanePoint> SquareOf(std::string_view letters) {
    if (letters.find('I') != std::string_view::npos) return std::nullopt;
    Cell small = CellOf(letters.back());
    if (letters.size() == 1) return util::PlanePoint{small.column * squareSide, small.row * squareSide};
    if (letters.size() != 2) return std::nullopt;
    // The origin of the grid is the south-west corner of square S, in the third column and the second row.
    Cell large = CellOf(letters.front());
    int column = (large.column - 2) * 5 + small.column, row = (large.row - 1) * 5 + small.row;
    bool isOnGrid = column >= 0 && column < 7 && row >= 0 && row < 13;
    if (!isOnGrid) return std::nullopt;
    return util::PlanePoint{column * squareSide, row * squareSide};
}

std::vector<std::string_view> GridWords(std::string_view text) {
    std::vector<std::string_view> words;
    while (true) {
        std::size_t begin = text.find_first_not_of(blanks);
        if (begin == std::string_view::npos) return words;
        text.remove_prefix(begin);
        words.push_back(text.substr(0, text.find_first_of(blanks)));
        text.remove_prefix(words.back().size());
    }
}

/// Number of digits before the decimals; 0 if the text is not a plain number.
std::size_t WholeDigits(std::string_view word) {
    std::size_t whole = std::min(word.find_first_not_of(digits), word.size());
    bool isNumber =
        whole == word.size() ||
        (word[whole] == '.' && word.find_first_not_of(digits, whole + 1) == std::string_view::npos);
    return isNumber ? whole : 0;
}

/// Easting and northing within the square, in metres, and the side of the square that the digits mean.
std::optional<GridSquare> WithinSquare(std::string_view text) {
    constexpr std::size_t digitsOfMetres = 5;
    std::vector<std::string_view> words = GridWords(text);
    if (words.size() == 1 && words[0].size() % 2 == 0) {
        std::size_t half = words[0].size() / 2;
        words = {words[0].substr(0, half), words[0].substr(half)};
    }
    if (words.size() != 2) return std::nullopt;
    std::size_t whole = WholeDigits(words[0]);
    if (whole < 1 || whole > digitsOfMetres || WholeDigits(words[1]) != whole) return std::nullopt;
    bool hasDecimals = words[0].size() + words[1].size() > 2 * whole;
    if (hasDecimals && whole != digitsOfMetres) return std::nullopt;
    double side = squareSide / std::pow(10.0, static_cast<double>(whole));
    return GridSquare{{util::NumberOf(words[0]) * side, util::NumberOf(words[1]) * side}, side};
}

}  // namespace

std::optional<GridSquare> ReadGridLetters(std::string_view text) {
    constexpr double largestOfOneLetter = 100;  // larger squares could be degrees after an N, S, E or W
    std::string capitals = platform::UpperAscii(util::Trim(text));
    std::size_t end = std::min(capitals.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ"), capitals.size());
    if (end < 1 || end > 2) return std::nullopt;
    std::optional<util::PlanePoint> corner = SquareOf(std::string_view(capitals).substr(0, end));
    std::optional<GridSquare> square = WithinSquare(std::string_view(capitals).substr(end));
    if (!corner || !square || (end == 1 && square->side > largestOfOneLetter)) return std::nullopt;
    square->corner.x += corner->x;
    square->corner.y += corner->y;
    return square;
}

}  // namespace vexlator::georef

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/AngleReading.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <utility>

namespace vexlator::georef {

namespace {

/// Characters that people type for the three marks. Longer ones first: two apostrophes mean seconds.
constexpr std::array<std::pair<std::string_view, char>, 14> marks = {
    {{"\xC2\xB0", 'd'},  // degree sign
     {"\xC2\xBA", 'd'},  // ordinal sign
     {"\xCB\x9A", 'd'},  // ring
     {"deg", 'd'},
     {"d", 'd'},
     {"''", 's'},
     {"\xE2\x80\xB2", 'm'},  // prime
     {"\xE2\x80\x99", 'm'},  // closing quote
     {"'", 'm'},
     {"min", 'm'},
     {"m", 'm'},
     {"\xE2\x80\xB3", 's'},  // double prime
     {"\xE2\x80\x9D", 's'},  // closing quotes
     {"\"", 's'}}};

std::vector<std::string_view> Words(std::string_view text) {
    std::vector<std::string_view> words;
    for (std::size_t i = 0; i <= util::CountOf(text, " "); ++i)
        if (std::string_view word = util::GetField(i, text, " "); !word.empty()) words.push_back(word);
    return words;
}

bool HasOneComma(std::string_view word) {
    std::size_t comma = word.find(',');
    return comma != std::string_view::npos && comma > 0 && comma + 1 < word.size() &&
           word.find(',', comma + 1) == std::string_view::npos;
}

/// Commas are decimal if a semicolon separates the values, or if each of two words contains one.
bool HasDecimalCommas(std::string_view text) {
    if (text.find('.') != std::string_view::npos) return false;
    if (text.find(';') != std::string_view::npos) return true;
    std::vector<std::string_view> words = Words(text);
    return words.size() == 2 && HasOneComma(words[0]) && HasOneComma(words[1]);
}

/// Reads a typed position and collects values.
class Scanner {
public:
    explicit Scanner(std::string_view text) : text_(text) {
        if (HasDecimalCommas(text)) std::replace(text_.begin(), text_.end(), ',', '.');
        rest_ = text_;
    }

    std::vector<AngleValue> Scan() {
        while (!rest_.empty())
            if (!(SkipBlank() || TakeSeparator() || TakeNumber() || TakeMark() || TakeHemisphere()))
                throw NotUnderstood{InWords("vexlator", "%1 is not understood").With({Quote(rest_)})};
        Close();
        return std::move(values_);
    }

private:
    bool Take(std::string_view what) {
        if (!rest_.starts_with(what)) return false;
        rest_.remove_prefix(what.size());
        return true;
    }
    /// A colon separates the parts of an angle, like a blank.
    bool SkipBlank() { return Take(" ") || Take("\t") || Take(":"); }
    bool TakeSeparator() {
        if (!Take(",") && !Take(";")) return false;
        Close();
        return true;
    }
    bool TakeNumber();
    bool TakeMark();
    bool TakeHemisphere();
    void Close() {
        if (!current_.parts.empty() || current_.hemisphere) values_.push_back(std::exchange(current_, {}));
    }

    std::string text_;
    std::string_view rest_;
    std::vector<AngleValue> values_;
    AngleValue current_;
    bool lettersComeFirst_ = false;
};

bool Scanner::TakeNumber() {
    std::string_view text = rest_;
    AnglePart part;
    part.hasSign = text.starts_with('-') || text.starts_with('+');
    part.isNegative = text.starts_with('-');
    if (part.hasSign) text.remove_prefix(1);
    if (text.empty() || std::string_view("0123456789.").find(text[0]) == std::string_view::npos) return false;
    auto [end, error] =
        std::from_chars(text.data(), text.data() + text.size(), part.value, std::chars_format::fixed);
    if (error != std::errc()) return false;
    std::string_view number(text.data(), static_cast<std::size_t>(end - text.data()));
    part.hasDecimals = number.find('.') != std::string_view::npos;
    rest_ = text.substr(number.size());
    bool isFull = !current_.parts.empty() && (part.hasSign || current_.parts.back().mark == 's');
    if (isFull) Close();
    current_.parts.push_back(part);
    return true;
}

bool Scanner::TakeMark() {
    auto mark = std::find_if(marks.begin(), marks.end(),
                             [this](const auto& known) { return rest_.starts_with(known.first); });
    // A lower-case s means seconds only after marked minutes; else it means south.
    std::size_t count = current_.parts.size();
    bool isSmallS = rest_.starts_with('s') && count > 1 && current_.parts[count - 2].mark == 'm';
    if (mark == marks.end() && !isSmallS) return false;
    char kind = isSmallS ? 's' : mark->second;
    if (count == 0 || current_.parts.back().mark)
        throw NotUnderstood{InWords("vexlator", "a mark is in the place of a number")};
    rest_.remove_prefix(isSmallS ? 1 : mark->first.size());
    if (kind == 'd' && count > 1) {
        AnglePart degrees = current_.parts.back();
        current_.parts.pop_back();
        Close();
        current_.parts.push_back(degrees);
    }
    current_.parts.back().mark = kind;
    return true;
}

bool Scanner::TakeHemisphere() {
    std::string letter = platform::UpperAscii(rest_.substr(0, 1));
    if (std::string_view("NSEW").find(letter) == std::string_view::npos) return false;
    rest_.remove_prefix(1);
    bool isFirst = values_.empty() && current_.parts.empty();
    if (isFirst) lettersComeFirst_ = true;
    if (lettersComeFirst_) Close();
    if (current_.hemisphere || (!lettersComeFirst_ && current_.parts.empty()))
        throw NotUnderstood{InWords("vexlator", "the letter %1 is in the place of a number").With({letter})};
    current_.hemisphere = letter[0];
    if (!lettersComeFirst_) Close();
    return true;
}

/// "52 39 28.8 1 42 58" and "52,39,28.8,1,42,58": the same number of parts for each of the two values.
std::vector<AngleValue> Halves(std::vector<AngleValue> values) {
    std::vector<AnglePart> parts;
    for (const AngleValue& value : values) {
        if (value.hemisphere) return values;
        parts.insert(parts.end(), value.parts.begin(), value.parts.end());
    }
    bool isMarked =
        std::any_of(parts.begin(), parts.end(), [](const AnglePart& part) { return part.mark != 0; });
    if (isMarked || parts.size() % 2 != 0 || parts.size() > 6 || parts.empty()) return values;
    auto middle = parts.begin() + static_cast<std::ptrdiff_t>(parts.size() / 2);
    AngleValue first, second;
    first.parts.assign(parts.begin(), middle);
    second.parts.assign(middle, parts.end());
    return {first, second};
}

}  // namespace

double AngleValue::Degrees() const {
    constexpr std::string_view order = "dms";
    if (parts.empty() || parts.size() > order.size())
        throw NotUnderstood{InWords("vexlator", "an angle has degrees, minutes and seconds")};
    double degrees = 0, unit = 1;
    for (std::size_t i = 0; i < parts.size(); ++i, unit /= 60) {
        const AnglePart& part = parts[i];
        if (part.mark && part.mark != order[i])
            throw NotUnderstood{InWords("vexlator", "degrees come first, then minutes, then seconds")};
        if (i > 0 && part.hasSign)
            throw NotUnderstood{InWords("vexlator", "minutes and seconds have no sign")};
        if (i > 0 && part.value >= 60)
            throw NotUnderstood{InWords("vexlator", "minutes and seconds are below 60")};
        if (part.hasDecimals && i + 1 < parts.size())
            throw NotUnderstood{InWords("vexlator", "only the last part of an angle has decimals")};
        degrees += part.value * unit;
    }
    if (hemisphere && parts[0].hasSign)
        throw NotUnderstood{InWords("vexlator", "an angle has a sign or a letter, not both")};
    return parts[0].isNegative || hemisphere == 'S' || hemisphere == 'W' ? -degrees : degrees;
}

std::vector<AngleValue> ReadAngleValues(std::string_view text) {
    std::vector<AngleValue> values = Scanner(text).Scan();
    return values.size() == 2 ? values : Halves(std::move(values));
}

}  // namespace vexlator::georef

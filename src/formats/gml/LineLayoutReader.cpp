// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/gml/LineLayoutReader.h"

#include "formats/SourceText.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <utility>

namespace vexlator::formats {

namespace {

constexpr std::string_view posStart = "<gml:pos>", posListStart = "<gml:posList>";

/// The text in the first pair of double quotes after a word; "" if there is none.
std::string_view QuotedBehind(std::string_view word, std::string_view line) {
    std::size_t found = line.find(word);
    std::size_t begin = found == std::string_view::npos ? found : line.find('"', found);
    if (begin == std::string_view::npos) return {};
    line.remove_prefix(begin + 1);
    return line.substr(0, line.find('"'));
}

/// The name of a start tag, without namespace prefix.
std::string_view TagName(std::string_view line) {
    std::string_view name = line.substr(0, line.find_first_of(" \t/>", 1));
    return name.substr(std::min(name.find(':'), name.size() - 1) + 1);
}

std::string_view ElementText(std::string_view line) {
    line.remove_prefix(std::min(line.find('>'), line.size() - 1) + 1);
    return line.substr(0, line.find('<'));
}

bool SetsThreeDimensions(std::string_view line) {
    return line.starts_with("<gml:") && !line.starts_with("<gml:Envelope") &&
           line.find("srsDimension=\"3\"") != std::string_view::npos;
}

std::optional<char32_t> NumberedCharacter(std::string_view reference) {
    reference.remove_prefix(1);
    int base = reference.starts_with('x') ? 16 : 10;
    if (base == 16) reference.remove_prefix(1);
    std::uint32_t code = 0;
    auto [stop, error] = std::from_chars(reference.data(), reference.data() + reference.size(), code, base);
    bool whole = error == std::errc() && stop == reference.data() + reference.size();
    bool character = code > 0 && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    if (!whole || !character) return std::nullopt;
    return code;
}

std::optional<char32_t> ReferredCharacter(std::string_view reference) {
    static constexpr std::pair<std::string_view, char> named[] = {
        {"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};
    for (auto [name, character] : named)
        if (reference == name) return static_cast<char32_t>(character);
    return reference.starts_with('#') ? NumberedCharacter(reference) : std::nullopt;
}

}  // namespace

std::string WithoutReferences(std::string_view text) {
    std::string result;
    while (true) {
        std::size_t begin = text.find('&');
        result += text.substr(0, begin);
        if (begin == std::string_view::npos) return result;
        text.remove_prefix(begin);
        std::size_t size = std::min<std::size_t>(text.substr(0, 16).find(';'), text.size());
        auto character = size < text.size() ? ReferredCharacter(text.substr(1, size - 1)) : std::nullopt;
        if (character) {
            platform::AppendUtf8(result, *character);
            text.remove_prefix(size + 1);
        } else {
            result += '&';
            text.remove_prefix(1);
        }
    }
}

std::string_view DeclaredEncoding(std::string_view text) {
    text = platform::WithoutByteOrderMark(text);
    if (!text.starts_with("<?xml")) return {};
    text = text.substr(0, text.find('>'));
    std::size_t begin = text.find_first_of("\"'", text.find("encoding"));
    if (begin == std::string_view::npos) return {};
    text.remove_prefix(begin);
    return text.substr(1, std::min(text.find(text[0], 1), text.size()) - 1);
}

LineLayoutReader::LineLayoutReader(std::string_view text)
    : lines_(text), decoder_(DeclaredEncoding(text).empty() ? "UTF-8" : DeclaredEncoding(text)) {}

void LineLayoutReader::ReadFeatures(const Take& take) {
    GmlFeature feature;
    while (ReadFeature(feature)) take(feature);
}

std::string_view LineLayoutReader::NextLine() {
    std::string_view line = lines_.ReadTextLine();
    CheckLineLength(line, lines_.Line());
    bool mayName = line.starts_with("<gml:") && !line.starts_with("<gml:pos");
    if (mayName && srsName_.empty()) srsName_ = QuotedBehind("srsName=", line);
    return line;
}

bool LineLayoutReader::ReadFeature(GmlFeature& feature) {
    feature.Clear();
    consumed_ = lines_.Position();
    while (!lines_.AtEnd() && NextLine() != featureStartLine) {
    }
    typed_ = false;
    while (!lines_.AtEnd()) {
        std::string_view line = NextLine();
        if (line == featureEndLine) return true;
        ReadLine(line, feature);
    }
    return false;
}

void LineLayoutReader::ReadLine(std::string_view line, GmlFeature& feature) {
    if (line.starts_with("<fme")) {
        ReadProperty(line, feature);
    } else if (line.starts_with(posListStart)) {
        ReadPoints(line, posListStart, feature.threeDimensional ? 3 : 2, feature);
    } else if (line.starts_with(posStart)) {
        ReadPoints(line, posStart, CoordinateFormat::allInOne, feature);
    } else if (SetsThreeDimensions(line)) {
        feature.threeDimensional = true;
    }
}

void LineLayoutReader::ReadProperty(std::string_view line, GmlFeature& feature) {
    if (!std::exchange(typed_, true)) {
        decoder_.Append(feature.type, TagName(line));
        decoder_.Append(feature.identifier, QuotedBehind("", line));
        return;
    }
    GmlProperty& property = feature.properties.emplace_back();
    decoder_.Append(property.name, TagName(line));
    decoder_.Append(property.value, ElementText(line));
    if (property.value.find('&') != std::string::npos) property.value = WithoutReferences(property.value);
}

void LineLayoutReader::ReadPoints(std::string_view line, std::string_view startTag,
                                  std::size_t valuesPerPoint, GmlFeature& feature) {
    feature.points.clear();
    feature.parts.clear();
    line.remove_prefix(startTag.size());
    CoordinateFormat format;
    format.valuesPerPoint = valuesPerPoint;
    format.strict = false;
    coordinates_.Begin(format, feature.points);
    coordinates_.Append(line.substr(0, line.find('<')));
    coordinates_.End();
    if (!feature.points.empty()) feature.parts.push_back({});
}

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/xml/XmlAttributeReader.h"

#include "drawing/Drawing.h"
#include "formats/drawingxml/DrawingXml.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"

#include <charconv>

namespace vexlator::importer {

using platform::ReadError;

namespace {

constexpr std::size_t mostAttributes = 64;

std::string Shown(std::string_view text) {
    constexpr std::size_t longest = 40;
    return std::string(platform::CutUtf8(text, longest));
}

template <typename Number>
Number WholeOf(std::string_view name, std::string_view text, int base) {
    Number number{};
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc() || end != text.data() + text.size())
        throw ReadError("", "", std::string(name) + "=\"" + Shown(text) + "\" is no such number");
    return number;
}

}  // namespace

double XmlNumber(std::string_view text) {
    double number = 0;
    std::string_view digits = text.substr(text.starts_with('+') ? 1 : 0);
    auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc() || end != digits.data() + digits.size())
        throw ReadError("", "", "\"" + Shown(text) + "\" is no number");
    return number;
}

XmlAttributeReader::XmlAttributeReader(formats::XmlAttributes attributes) : attributes_(attributes) {
    if (attributes.size() > mostAttributes) throw ReadError("", "", "an element has more than 64 attributes");
    escaped_ = Flag("escaped");
}

std::optional<std::string_view> XmlAttributeReader::Take(std::string_view name) {
    for (std::size_t i = 0; i < attributes_.size(); ++i)
        if (attributes_[i].name == name) {
            taken_ |= std::uint64_t{1} << i;
            return attributes_[i].value;
        }
    return std::nullopt;
}

std::optional<std::string> XmlAttributeReader::Text(std::string_view name) {
    std::optional<std::string_view> value = Take(name);
    if (!value) return std::nullopt;
    return escaped_ ? formats::drawingxml::Unescaped(*value) : std::string(*value);
}

std::string XmlAttributeReader::TextOr(std::string_view name, std::string_view otherwise) {
    return Text(name).value_or(std::string(otherwise));
}

std::string XmlAttributeReader::Required(std::string_view name) {
    std::optional<std::string> value = Text(name);
    if (!value) throw ReadError("", "", "the attribute " + std::string(name) + " is missing");
    return *value;
}

bool XmlAttributeReader::Flag(std::string_view name) {
    std::optional<std::string_view> value = Take(name);
    if (!value || *value == "false" || *value == "0") return false;
    if (*value == "true" || *value == "1") return true;
    throw ReadError("", "", std::string(name) + "=\"" + Shown(*value) + "\" is neither true nor false");
}

double XmlAttributeReader::Number(std::string_view name, double otherwise) {
    std::optional<std::string_view> value = Take(name);
    return value ? XmlNumber(*value) : otherwise;
}

std::int32_t XmlAttributeReader::Whole(std::string_view name, std::int32_t otherwise) {
    std::optional<std::string_view> value = Take(name);
    return value ? WholeOf<std::int32_t>(name, *value, 10) : otherwise;
}

std::uint32_t XmlAttributeReader::Colour(std::string_view name) {
    std::optional<std::string_view> value = Take(name);
    return value ? WholeOf<std::uint32_t>(name, *value, 10) : drawing::defaultColour;
}

std::uint64_t XmlAttributeReader::Handle(std::string_view name) {
    std::optional<std::string_view> value = Take(name);
    return value ? WholeOf<std::uint64_t>(name, *value, 16) : 0;
}

void XmlAttributeReader::ExpectEnd() const {
    for (std::size_t i = 0; i < attributes_.size(); ++i) {
        std::string_view name = attributes_[i].name;
        bool isKnown = (taken_ >> i & 1) != 0 || name.starts_with("xmlns") || name.starts_with("xsi:");
        if (!isKnown) throw ReadError("", "", "the attribute " + Shown(name) + " is not known here");
    }
}

}  // namespace vexlator::importer

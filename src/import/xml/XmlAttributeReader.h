// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/xml/XmlParser.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// The attributes of one element. Each is read once; one that nobody reads is an error. Errors name the
/// attribute.
/// @throws platform::ReadError without a place, from every member
class XmlAttributeReader {
public:
    explicit XmlAttributeReader(formats::XmlAttributes attributes);

    /// Whether the element's texts are escaped.
    bool IsEscaped() const { return escaped_; }
    std::optional<std::string> Text(std::string_view name);
    std::string TextOr(std::string_view name, std::string_view otherwise);
    /// Not missing.
    std::string Required(std::string_view name);
    bool Flag(std::string_view name);
    double Number(std::string_view name, double otherwise);
    std::int32_t Whole(std::string_view name, std::int32_t otherwise);
    std::uint32_t Colour(std::string_view name);
    /// A hexadecimal number; 0 if it is missing.
    std::uint64_t Handle(std::string_view name);
    /// Declarations of namespaces and of the schema's place do not count.
    void ExpectEnd() const;

private:
    std::optional<std::string_view> Take(std::string_view name);

    formats::XmlAttributes attributes_;
    std::uint64_t taken_ = 0;  ///< a bit for each of the attributes that have been read
    bool escaped_ = false;
};

/// The number that is the whole text. @throws platform::ReadError without a place
double XmlNumber(std::string_view text);

}  // namespace vexlator::importer

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <vector>

/// The application schema of a GML 3.2 document (ISO 19136:2007), in the form of the Simple Features profile
/// (OGC 10-100r3): a collection of features, which have simple properties and one geometry.
namespace vexlator::formats {

enum class GmlShape : std::uint8_t {
    Point,   ///< one position
    Line,    ///< two or more
    Area,    ///< a ring: four or more, the last like the first
    Circle,  ///< three positions on it
    Arc      ///< its begin, a position on it, its end
};

/// The narrowest of the simple types that holds every value of a property.
class GmlValueType {
public:
    /// `isText`: the property is a text whatever its values look like.
    explicit GmlValueType(bool isText) : isText_(isText) {}
    void Add(std::string_view value);
    /// Of the schema language: "string", "int", "long", "decimal" or "double".
    std::string_view Name() const;

private:
    enum class Number : std::uint8_t { Int, Long, Decimal, Double };
    bool isText_;
    Number number_ = Number::Int;
    bool any_ = false;
};

struct GmlPropertyType {
    std::string element;
    GmlValueType type;
};

/// One type of features, and what its features turned out to be.
struct GmlFeatureType {
    std::string element;
    std::vector<GmlPropertyType> properties;  ///< in the order of the document
    std::set<GmlShape> shapes = {};           ///< of its features; none: without geometry
};

/// Names that elements of an application schema cannot have, because readers look for them by name alone.
std::set<std::string, std::less<>> GmlOwnNames();

/// The namespace of a document's own elements, which are different in every document.
std::string GmlNamespaceOf(std::string_view documentName);

/// @throws platform::WriteError
void WriteGmlSchema(platform::OutputFile& file, std::string_view targetNamespace,
                    const std::vector<GmlFeatureType>& types);

}  // namespace vexlator::formats

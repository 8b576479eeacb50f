// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// The open XML layout of drawings, version 1: what its writer and its reader share. The schema, which every
/// export puts beside the document, explains it.
namespace vexlator::formats::drawingxml {

constexpr std::string_view nameSpace = "urn:vexlator:drawing-xml:1";
constexpr std::string_view schemaFile = "vexlator-drawing.xsd";

/// The text of the schema, in XML Schema 1.0.
std::string_view Schema();

/// Whether a text reads back the same as an element's content: UTF-8 of characters that XML can hold.
bool IsContent(std::string_view text);
/// The same for an attribute's value, in which readers take line ends and tabs for blanks.
bool IsAttribute(std::string_view text);

/// For other texts, in elements that are marked as escaped: "%" and the bytes that are not printable ASCII
/// become
/// "%" and two hexadecimal digits.
std::string Escaped(std::string_view text);
/// @throws platform::ReadError without a place for a "%" without two digits
std::string Unescaped(std::string_view text);

}  // namespace vexlator::formats::drawingxml

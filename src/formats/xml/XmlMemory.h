// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/xml/XmlParser.h"

#include <string>
#include <string_view>

/// XML texts in memory.
namespace vexlator::formats {

/// ParseXml() of a text. @throws platform::ReadError, and exceptions of the handler
void ParseXmlText(std::string_view text, XmlHandler& handler);

/// A UTF-8 text as character data or attribute value. Control characters are escaped as _xNNNN_, as parts of
/// office documents have them.
std::string XmlEscaped(std::string_view text);

}  // namespace vexlator::formats

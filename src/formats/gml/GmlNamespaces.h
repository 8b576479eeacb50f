// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/xml/XmlParser.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// The prefixes of the GML namespace. A declaration holds from its place to the end of the file. "gml" needs
/// none.
class GmlNamespaces {
public:
    /// Reads the declarations in the attributes of an element.
    void Note(XmlAttributes attributes);
    /// Whether the name of an element or attribute is in the namespace.
    bool IsGml(std::string_view name) const;

private:
    std::vector<std::string> prefixes_{"gml"};
};

}  // namespace vexlator::formats

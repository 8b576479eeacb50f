// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/XmlParser.h"

#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// Which prefixes stand for the namespace of GML. Declarations hold from where they stand to the end of the
/// file; "gml" needs none.
class GmlNamespaces {
public:
    /// Takes the declarations among the attributes of an element.
    void Note(XmlAttributes attributes);
    /// Whether a name, of an element or an attribute, is of the namespace.
    bool IsGml(std::string_view name) const;

private:
    std::vector<std::string> prefixes_{"gml"};
};

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace vexlator::formats {

/// A name for an XML element made of any text: characters that a name without a colon cannot hold (Namespaces
/// in XML 1.0, production NCName) become "_", and "_" precedes a character that cannot be the first.
std::string XmlNameOf(std::string_view text);

/// Gives names to elements of one parent, each once, even for readers to which letter case does not count:
/// the second "NAME" becomes "NAME_2".
class XmlNames {
public:
    XmlNames() = default;
    /// These very names are not given.
    explicit XmlNames(std::set<std::string, std::less<>> reserved) : reserved_(std::move(reserved)) {}
    std::string Take(std::string_view text);

private:
    std::set<std::string, std::less<>> reserved_, taken_;  ///< taken ones in lower case
};

}  // namespace vexlator::formats

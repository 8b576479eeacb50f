// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlXmlRules.h"
#include "formats/xml/XmlParser.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace vexlator::formats {

/// The coordinate system of an element, from it or an element around it.
struct GmlReference {
    std::uint8_t dimension = 2;  ///< number of values of a point; 0: the file gives none
    std::uint16_t name = 0;      ///< number of the system in GmlReferences; 0: none
    bool isGiven = false;        ///< the file itself gives the dimension
};

/// The meaning of the attributes srsName and srsDimension. A dimension applies to all elements inside, until
/// one names another coordinate system. Then the definition of that system decides, if it is known.
class GmlReferences {
public:
    explicit GmlReferences(AxisCount axisCount) : axisCount_(std::move(axisCount)) {}
    /// Changes the reference of the surrounding element to that of an element with these attributes.
    void Read(XmlAttributes attributes, GmlReference& reference);
    /// The first name in the file; "" if there is none.
    const std::string& FirstName() const { return firstName_; }

private:
    struct System {
        std::uint16_t number = 0;
        std::uint8_t dimension = 0;  ///< by its definition; 0: unknown
    };

    void UseSystem(std::string_view name, GmlReference& reference);
    System Find(std::string_view name);

    AxisCount axisCount_;
    std::map<std::string, System, std::less<>> systems_;
    std::string firstName_, lastName_;
    System last_;  ///< the system of lastName_: most elements repeat the previous name
};

/// Value of "2", "3" and "4"; 0 for another text.
std::uint8_t GmlDimension(std::string_view text);

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlXmlRules.h"
#include "formats/gml/XmlParser.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace vexlator::formats {

/// The coordinate system that holds at an element, as it or an element around it says.
struct GmlReference {
    std::uint8_t dimension = 2;  ///< values of a point; 0: the file tells none that there is
    std::uint16_t name = 0;      ///< of the system, as GmlReferences counts them; 0: none
    bool isGiven = false;        ///< the file itself tells the dimension
};

/// What the attributes srsName and srsDimension say. A dimension holds for all elements within, until one
/// names another coordinate system: then the definition of that system tells, where it is known.
class GmlReferences {
public:
    explicit GmlReferences(AxisCount axisCount) : axisCount_(std::move(axisCount)) {}
    /// Changes the reference of the element around into that of an element with these attributes.
    void Read(XmlAttributes attributes, GmlReference& reference);
    /// The first name in the file; "" when there is none.
    const std::string& FirstName() const { return firstName_; }

private:
    struct System {
        std::uint16_t number = 0;
        std::uint8_t dimension = 0;  ///< by its definition; 0: not known
    };

    void UseSystem(std::string_view name, GmlReference& reference);
    System Find(std::string_view name);

    AxisCount axisCount_;
    std::map<std::string, System, std::less<>> systems_;
    std::string firstName_, lastName_;
    System last_;  ///< that of lastName_: most elements repeat the name before them
};

/// Of "2", "3" and "4"; 0 for another text.
std::uint8_t GmlDimension(std::string_view text);

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlFeature.h"
#include "formats/xml/XmlParser.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace vexlator::formats {

/// Collects the properties of a feature from its elements, before and after it is known to be one.
class GmlProperties {
public:
    /// `keepsParents`: an element with child elements is also a property, without a value.
    GmlProperties(GmlFeature& feature, bool keepsParents) : feature_(feature), keepsParents_(keepsParents) {}

    /// Opens a property for an element. A child element can cancel it.
    void Begin(std::string_view name, XmlAttributes attributes);
    /// Whether the innermost element is the last property.
    bool IsOpen() const { return isOpen_; }
    void Append(std::string_view text);
    /// A child element: the open property contains more than text.
    void Leave();
    /// The open property's element ends.
    void End();
    /// All properties of a feature have been taken.
    void Forget();

    std::size_t Count() const { return feature_.properties.size(); }
    /// Size of all kept properties in bytes.
    std::size_t Bytes() const { return bytes_; }
    bool HaveRoomFor(std::size_t bytes) const { return bytes_ + bytes <= mostBytes; }
    /// Drops all but the first `count`. The dropped ones have `bytes` bytes.
    void KeepFirst(std::size_t count, std::size_t bytes);
    /// Drops the first `count`, which have `bytes` bytes.
    void DropFirst(std::size_t count, std::size_t bytes);

private:
    static constexpr std::size_t mostBytes = std::size_t{64} << 20;

    GmlFeature& feature_;
    bool keepsParents_;
    bool isOpen_ = false;
    std::size_t bytes_ = 0;
    std::string reference_;  ///< xlink:href of the open property
};

}  // namespace vexlator::formats

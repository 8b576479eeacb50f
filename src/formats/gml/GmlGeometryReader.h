// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/CoordinateText.h"
#include "formats/gml/GmlFeature.h"
#include "formats/gml/GmlOpenElement.h"
#include "formats/gml/GmlXmlRules.h"
#include "formats/gml/XmlParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// Reads the geometry of one feature after the other into its points and parts. What is wrong with it becomes
/// the feature's damage.
class GmlGeometryReader {
public:
    /// `line`: that the parser has reached.
    GmlGeometryReader(GmlFeature& feature, const GmlXmlRules& rules, const std::uint64_t& line)
        : feature_(feature), rules_(rules), line_(line) {}

    /// Another feature begins.
    void BeginFeature() { ring_ = GmlPart::Kind::Path; }
    /// An element of another namespace turns out to be a geometry when its content comes: one with rings is a
    /// surface, any other a point or a line.
    void BecomeGeometry(GmlElement content, GmlOpenElement& around);
    /// Sets what `open` is: a part of the geometry, or skipped.
    void Start(GmlElement element, XmlAttributes attributes, GmlOpenElement& open);
    void End(const GmlOpenElement& open);
    bool TakesText() const { return inCoordinates_; }
    void Text(std::string_view text);

private:
    void StartMeaning(XmlAttributes attributes, GmlOpenElement& open);
    void ReadAttributes(XmlAttributes attributes, GmlOpenElement& open);
    template <typename Step>
    void TryCoordinates(Step step);
    void Damage(const std::string& reason);
    void EndCurve(const GmlOpenElement& open);
    void BeginCoordinates(XmlAttributes attributes, GmlOpenElement& open);
    CoordinateFormat FormatOf(XmlAttributes attributes, const GmlOpenElement& open) const;
    void EndCoordinates(const GmlOpenElement& open);
    void BeginPart(GmlOpenElement& open);
    void EndPart(const GmlOpenElement& open);

    GmlFeature& feature_;
    const GmlXmlRules& rules_;
    const std::uint64_t& line_;
    CoordinateText coordinates_;
    bool inCoordinates_ = false;
    bool inPart_ = false;
    GmlPart::Kind ring_ = GmlPart::Kind::Path;
    std::vector<std::size_t> reversed_;  ///< the first points of the reversed curves around the current place
};

}  // namespace vexlator::formats

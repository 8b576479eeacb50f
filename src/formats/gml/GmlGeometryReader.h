// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/CoordinateText.h"
#include "formats/gml/GmlFeature.h"
#include "formats/gml/GmlOpenElement.h"
#include "formats/gml/GmlXmlRules.h"
#include "formats/xml/XmlParser.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

/// Reads the geometries of features, one feature at a time, into points and parts. A fault becomes the
/// feature's damage.
class GmlGeometryReader {
public:
    /// `line`: current line of the parser.
    GmlGeometryReader(GmlFeature& feature, const GmlXmlRules& rules, const std::uint64_t& line)
        : feature_(feature), rules_(rules), line_(line) {}

    /// Starts another feature.
    void BeginFeature() { ring_ = GmlPart::Kind::Path; }
    /// An element of another namespace proves to be a geometry by its content: one with rings is a surface,
    /// any other a point or a line.
    void BecomeGeometry(GmlElement content, GmlOpenElement& around);
    /// Sets the role of `open`: a part of the geometry, or skipped.
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
    std::vector<std::size_t> reversed_;  ///< first points of the reversed curves around the current element
};

}  // namespace vexlator::formats

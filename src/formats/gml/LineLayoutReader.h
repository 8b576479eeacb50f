// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/CoordinateText.h"
#include "formats/gml/GmlReader.h"
#include "platform/CodePages.h"
#include "util/Files.h"

#include <string>
#include <string_view>

namespace vexlator::formats {

constexpr std::string_view featureStartLine = "<gml:featureMember>";
constexpr std::string_view featureEndLine = "</gml:featureMember>";

/// Reads files with one element per line, which need not be well-formed XML. Each coordinate line of a
/// feature replaces the one before it. Values that are not numbers count as 0. No line is an error, except
/// one longer than longestLine.
class LineLayoutReader : public GmlReader {
public:
    /// The text must outlive the reader.
    explicit LineLayoutReader(std::string_view text);
    void ReadFeatures(const Take& take) override;
    std::size_t Consumed() const override { return consumed_; }
    const std::string& SrsName() const override { return srsName_; }

private:
    std::string_view NextLine();
    bool ReadFeature(GmlFeature& feature);
    void ReadLine(std::string_view line, GmlFeature& feature);
    void ReadProperty(std::string_view line, GmlFeature& feature);
    void ReadPoints(std::string_view line, std::string_view startTag, std::size_t valuesPerPoint,
                    GmlFeature& feature);

    util::LineReader lines_;
    platform::Decoder decoder_;
    CoordinateText coordinates_;
    std::string srsName_;
    std::size_t consumed_ = 0;
    bool typed_ = false;  ///< the line with the feature's type has been read
};

/// The text with XML references, such as &amp; and &#233;, replaced by their characters. Others stay.
std::string WithoutReferences(std::string_view text);

/// The encoding in an XML declaration at the start of the text; "" if there is none.
std::string_view DeclaredEncoding(std::string_view text);

}  // namespace vexlator::formats

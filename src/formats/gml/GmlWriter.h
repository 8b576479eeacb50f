// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlSchema.h"
#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Writes GML 3.2 documents. Source: ISO 19136:2007, clauses 9, 10 and 21.
namespace vexlator::formats {

struct GmlDocument {
    std::string targetNamespace;  ///< of its own elements
    std::string schemaFile;       ///< name of the file beside the document
    std::string srsName;          ///< of every geometry; "": none
};

/// Writes one document into a file that the caller commits: features one after the other, each with
/// BeginFeature(), AddValue() in the order of its type's properties, at most one AddGeometry(), EndFeature().
/// @throws platform::WriteError
class GmlWriter {
public:
    /// The texts around an element's content.
    struct Element {
        explicit Element(const std::string& name) : begin("<vx:" + name + ">"), end("</vx:" + name + ">\n") {}
        std::string begin, end;
    };

    GmlWriter(platform::OutputFile& file, const GmlDocument& document);

    /// `id`: unique in the document, at most 40 letters and digits.
    void BeginFeature(std::string_view element, std::string_view id);
    /// Returns the number of characters that XML cannot hold; they become "?".
    std::uint64_t AddValue(const Element& property, std::string_view value);
    /// `heights` is empty or has one for each position.
    void AddGeometry(GmlShape shape, std::span<const util::PlanePoint> positions,
                     std::span<const double> heights);
    void EndFeature();
    /// Says that a curve reaches a position that is none of its own.
    void Cover(const util::PlanePoint& position);
    void Finish();

private:
    void WriteEnvelope();
    void AddCoordinates(std::span<const util::PlanePoint> positions, std::span<const double> heights);

    platform::OutputFile& file_;
    std::string attributes_;  ///< of geometries, behind the identifier
    std::string element_, id_;
    std::uint64_t envelopeAt_ = 0;  ///< offset of the room for it
    bool isCovered_ = false;
    util::PlanePoint least_, most_;  ///< corners of the envelope
};

}  // namespace vexlator::formats

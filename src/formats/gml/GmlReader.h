// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlFeature.h"
#include "formats/gml/GmlXmlRules.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

/// Reads GML feature by feature. Sources: OGC Geography Markup Language 2.1.2 (OGC 02-069), 3.1.1 (OGC
/// 03-105r1) and 3.2.1 (OGC 07-036, clauses 9 to 11: features, geometric primitives, aggregates). Files by
/// FME with one element per line are read by lines. All others, and compressed ones, are read by an XML
/// parser.
namespace vexlator::formats {

struct GmlOptions {
    /// Keep every ring and every part of a feature. False: a feature keeps only the coordinates read last.
    /// Not set: true, except for files in the line layout.
    std::optional<bool> fullRings;
    /// Largest unpacked size of a compressed file, in bytes.
    std::uint64_t mostUnpacked = std::uint64_t{16} << 30;
    /// Gives the dimension if the file omits it; may be empty.
    AxisCount axisCount = {};
};

class GmlReader {
public:
    virtual ~GmlReader() = default;
    using Take = std::function<void(const GmlFeature& feature)>;

    /// Calls `take` with each feature of the file.
    /// @throws platform::ReadError with line or byte, without a file name, after the features before the
    /// error
    virtual void ReadFeatures(const Take& take) = 0;
    /// The number of leading bytes of the file that are no longer needed.
    virtual std::size_t Consumed() const = 0;
    /// The first coordinate system named so far, as in the file; "" if there is none.
    virtual const std::string& SrsName() const = 0;
};

/// Whether a file with this start is in the line layout. Its first feature is between the lines
/// <gml:featureMember> and </gml:featureMember>, is in the "fme" namespace, and has coordinates in a form of
/// the line layout. Every line of it holds one element, from the line's first character on.
bool HasLineLayout(std::string_view beginning);

/// The reader for the file, and whether the file is in the line layout. The bytes must outlive it.
struct OpenedGml {
    std::unique_ptr<GmlReader> reader;
    bool lineLayout = false;
};
/// @throws platform::ReadError for damaged compressed data
OpenedGml OpenGml(std::span<const std::byte> file, const GmlOptions& options);

}  // namespace vexlator::formats

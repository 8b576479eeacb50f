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

/// Reading GML (OGC Geography Markup Language 2 and 3) feature by feature. Files of FME translators with one
/// element a line are read by lines; all others, and compressed ones, by an XML parser.
namespace vexlator::formats {

struct GmlOptions {
    /// Keep every ring and every part of a feature. Off: the coordinates read last are the feature's only
    /// ones. Not set: on, except for files in the line layout.
    std::optional<bool> fullRings;
    /// Bytes that a compressed file may unpack to.
    std::uint64_t mostUnpacked = std::uint64_t{16} << 30;
    /// Tells what the file leaves open; may be empty.
    AxisCount axisCount = {};
};

class GmlReader {
public:
    virtual ~GmlReader() = default;
    using Take = std::function<void(const GmlFeature& feature)>;

    /// Calls `take` with each feature of the file. @throws platform::ReadError with line or byte, without a
    /// file name, once the features before have been taken
    virtual void ReadFeatures(const Take& take) = 0;
    /// How many bytes of the file are not needed any more.
    virtual std::size_t Consumed() const = 0;
    /// The first coordinate system that the file has named so far, as it stands; "" when there is none.
    virtual const std::string& SrsName() const = 0;
};

/// Whether a file that begins like this is in the line layout: its first feature stands between the lines
/// <gml:featureMember> and </gml:featureMember>, is one of the "fme" namespace, has coordinates that the line
/// layout knows, and every line of it holds one element, from the line's first character on.
bool HasLineLayout(std::string_view beginning);

/// A reader that suits the file, and whether the file is in the line layout. The bytes must outlive it.
struct OpenedGml {
    std::unique_ptr<GmlReader> reader;
    bool lineLayout = false;
};
/// @throws platform::ReadError for damaged compressed data
OpenedGml OpenGml(std::span<const std::byte> file, const GmlOptions& options);

}  // namespace vexlator::formats

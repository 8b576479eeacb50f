// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are features or an error, and a feature's parts are its points in order, none of them empty.
#include "formats/gml/GmlReader.h"
#include "platform/Errors.h"

#include <cstdint>
#include <cstdlib>
#include <span>

using namespace vexlator;

namespace {

void Check(const formats::GmlFeature& feature) {
    for (std::size_t part = 0; part < feature.parts.size(); ++part) {
        if (feature.parts[part].begin >= feature.PartEnd(part)) std::abort();
        if (feature.parts[part].surface > feature.surfaces) std::abort();
    }
    if (!feature.parts.empty() && feature.parts[0].begin != 0) std::abort();
    if (feature.parts.empty() && !feature.points.empty()) std::abort();
}

void Read(std::span<const std::byte> bytes, const formats::GmlOptions& options) {
    try {
        formats::OpenedGml gml = formats::OpenGml(bytes, options);
        gml.reader->ReadFeatures(Check);
        if (gml.reader->Consumed() > bytes.size()) std::abort();
    } catch (const platform::ReadError&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto bytes = std::as_bytes(std::span(data, size));
    constexpr std::uint64_t mostUnpacked = std::uint64_t{4} << 20;
    for (std::optional<bool> fullRings : {std::optional<bool>(), std::optional(false), std::optional(true)})
        Read(bytes, {.fullRings = fullRings, .mostUnpacked = mostUnpacked});
    return 0;
}

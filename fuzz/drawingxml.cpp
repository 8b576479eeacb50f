// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a drawing or an error. A drawing can be saved and read again, so no two of its entities have
// the same handle.
#include "drawing/Drawing.h"
#include "drawing/Vdf.h"
#include "import/xml/XmlToDrawing.h"
#include "platform/Errors.h"

#include <cstdint>
#include <cstdlib>
#include <span>

using namespace vexlator;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    drawing::Drawing drawing;
    std::uint64_t entities = 0;
    constexpr std::uint64_t mostUnpacked = std::uint64_t{1} << 20;
    auto bytes = std::as_bytes(std::span(data, size));
    try {
        importer::XmlToDrawing(*formats::BlocksOf(bytes, mostUnpacked), drawing,
                               importer::DrawingBuilder::Into::Empty, [&] { ++entities; });
    } catch (const platform::ReadError&) {
        return 0;
    }
    if (drawing.entityCount() != entities) std::abort();
    drawing::Drawing again;
    drawing::ReadVdf(drawing::Block{"", drawing::VdfBytes(drawing)}, again);
    if (again.entityCount() != entities) std::abort();
    return 0;
}

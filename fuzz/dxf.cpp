// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a DXF file: its layers and the colours of its inserts are within their ranges, and their
// texts are UTF-8. Any bytes are texts and names that are written as DXF, and do not disturb what is read
// back.
#include "formats/dxf/DxfInserts.h"
#include "formats/dxf/DxfLayers.h"
#include "formats/dxf/DxfWriter.h"
#include "platform/CodePages.h"
#include "support/TempFolder.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

using namespace vexlator;

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void Read(std::string_view bytes) {
    constexpr int mostColours = 255;
    for (const formats::DxfLayer& layer : formats::ReadDxfLayers(bytes)) {
        Require(layer.colourIndex >= 0 && layer.colourIndex <= mostColours && layer.rgb <= 0xFFFFFF);
        Require(platform::IsUtf8(layer.name));
    }
    for (const auto& [handle, colour] : formats::ReadDxfInsertColours(bytes))
        Require(!handle.empty() && colour.index > 0 && colour.rgb <= 0xFFFFFF);
}

void WriteAndRead(std::string_view bytes, const std::string& path) {
    const std::string name = platform::AsUtf8(bytes.substr(0, 40));
    for (const char* release : {"R12", "2004", "2018"}) {
        formats::DxfHead head;
        Require(formats::FindDxfRelease(release, head.release));
        head.layers.push_back({name, {5, -1}, true});
        platform::OutputFile file(path);
        formats::DxfWriter writer(file, head);
        writer.BeginEntities();
        writer.AddText({.layer = name}, {.text = name, .style = {}}, {});
        writer.AddInsert({.layer = "0", .lineType = {}, .colour = {3, -1}}, {.block = name}, {});
        writer.Finish();
        file.Commit();
        const std::string written = platform::ReadWholeFile(path);
        std::vector<formats::DxfLayer> layers = formats::ReadDxfLayers(written);
        Require(!layers.empty() && layers.back().isHidden && layers.back().colourIndex == 5);
        Require(formats::ReadDxfInsertColours(written).size() == 1);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TempFolder folder;
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Read(bytes);
    WriteAndRead(bytes, folder / "out.dxf");
    return 0;
}

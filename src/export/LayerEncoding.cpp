// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/LayerEncoding.h"

#include "platform/CodePages.h"

namespace vexlator::exporter {

using formats::TextEncoding;

TextEncoding EncodingFor(const ExportLayer& layer, std::span<const std::string> names) {
    bool ascii = true, windows = true;
    auto look = [&](std::string_view text) {
        if (platform::IsAscii(text)) return;
        ascii = false;
        windows = windows && platform::FitsWindows1252(text);
    };
    for (const std::string& name : names) look(name);
    for (std::uint32_t index : layer.set.indexes()) {
        if (!windows) break;
        drawing::XProperties properties = layer.set.entity(index).xproperties();
        if (platform::IsAscii(properties.encoded())) continue;
        for (drawing::ValueCursor values = properties.values(); !values.AtEnd();) look(values.Next());
    }
    if (!windows) return TextEncoding::Utf8;
    return ascii ? TextEncoding::Ascii : TextEncoding::Windows1252;
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/LayerEncoding.h"

#include "platform/CodePages.h"

namespace vexlator::exporter {

using formats::TextEncoding;

TextEncoding EncodingFor(const ExportLayer& layer, std::span<const std::string> names) {
    bool ascii = layer.ascii, windows = layer.windows;
    for (const std::string& name : names) {
        ascii = ascii && platform::IsAscii(name);
        windows = windows && platform::FitsWindows1252(name);
    }
    if (!windows) return TextEncoding::Utf8;
    return ascii ? TextEncoding::Ascii : TextEncoding::Windows1252;
}

}  // namespace vexlator::exporter

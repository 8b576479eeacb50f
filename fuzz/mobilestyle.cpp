// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a mobile style file, and every name has the number that a search over the lines finds.
#include "background/styling/MobileStyles.h"
#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Files.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

std::uint32_t PlainNumberOf(std::string_view text, std::string_view name) {
    std::string start = platform::LowerAscii(name) + "=";
    util::LineReader lines(text);
    while (!lines.AtEnd())
        if (platform::LowerAscii(lines.ReadTextLine()).starts_with(start))
            return static_cast<std::uint32_t>(lines.Line() - 1);
    return 0;
}

void Compare(const background::MobileStyles& styles, std::string_view text, std::string_view name) {
    if (styles.NumberOf(name) != PlainNumberOf(text, name)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const background::MobileStyles styles(bytes);
    std::string text = platform::DecodeText(bytes);
    constexpr int most = 50;  // each is searched for in the whole text
    util::LineReader lines(text);
    for (int names = 0; names < most && !lines.AtEnd(); ++names) {
        std::string_view line = lines.ReadTextLine();
        Compare(styles, text, line.substr(0, line.find('=')));
        Compare(styles, text, line.substr(0, line.rfind('=')));
    }
    for (std::string_view type : {"", "P", "S", "A"})
        if (!styles.ListFor(type).ends_with("|<Select Mobile StyleFile>")) std::abort();
    return 0;
}

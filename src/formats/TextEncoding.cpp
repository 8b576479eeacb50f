// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "formats/TextEncoding.h"

#include <algorithm>

namespace vexlator::formats {

std::string_view TextEncoder::EncodeOther(std::string_view text) {
    auto nuls = static_cast<std::uint64_t>(std::ranges::count(text, '\0'));
    bool windows = encoding_ == TextEncoding::Windows1252 && !platform::IsAscii(text);
    if (nuls == 0 && !windows) return text;
    bytes_ = windows ? platform::Windows1252FromUtf8(text, &replaced_) : std::string(text);
    std::ranges::replace(bytes_, '\0', '?');
    replaced_ += nuls;
    return bytes_;
}

}  // namespace vexlator::formats

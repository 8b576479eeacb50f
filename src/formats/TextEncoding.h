// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/CodePages.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::formats {

/// How the texts of a file are stored.
enum class TextEncoding { Ascii, Windows1252, Utf8 };  ///< Ascii: the caller knows that every text is

/// Turns texts into the bytes of a file, one after the other, at no cost where they are the same.
class TextEncoder {
public:
    explicit TextEncoder(TextEncoding encoding) : encoding_(encoding) {}

    /// The bytes, good until the next call. Characters that the encoding lacks become "?".
    std::string_view Encode(std::string_view text) {
        if (encoding_ != TextEncoding::Windows1252 || platform::IsAscii(text)) return text;
        bytes_ = platform::Windows1252FromUtf8(text, &replaced_);
        return bytes_;
    }
    /// Characters replaced so far.
    std::uint64_t Replaced() const { return replaced_; }

private:
    TextEncoding encoding_;
    std::string bytes_;
    std::uint64_t replaced_ = 0;
};

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/Words.h"
#include "platform/CodePages.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::formats {

/// How the texts of a file are stored.
enum class TextEncoding { Ascii, Windows1252, Utf8 };  ///< Ascii: the caller knows that every text is

/// True when the text is the same in every encoding and no reader ends it early: ASCII without NUL.
inline bool IsPlain(std::string_view text) {
    std::uint64_t odd = 0;
    // Taking 1 from each byte sets its highest bit where it was 0.
    ForEachWord(text, [&](std::uint64_t word) { odd |= word | (word - everyByte); });
    return (odd & highBits) == 0;
}

/// Turns texts into the bytes of a file, one after the other, at no cost where they are the same.
class TextEncoder {
public:
    explicit TextEncoder(TextEncoding encoding) : encoding_(encoding) {}

    /// The bytes, good until the next call. Characters that the encoding lacks become "?", and NUL, at which
    /// readers stop, does too.
    std::string_view Encode(std::string_view text) { return IsPlain(text) ? text : EncodeOther(text); }
    TextEncoding Encoding() const { return encoding_; }
    /// Characters replaced so far.
    std::uint64_t Replaced() const { return replaced_; }

private:
    std::string_view EncodeOther(std::string_view text);

    TextEncoding encoding_;
    std::string bytes_;
    std::uint64_t replaced_ = 0;
};

}  // namespace vexlator::formats

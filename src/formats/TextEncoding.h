// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/Words.h"
#include "platform/CodePages.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vexlator::formats {

/// Encoding of the texts of a file.
enum class TextEncoding { Ascii, Windows1252, Utf8 };  ///< Ascii: the caller knows that every text is ASCII

/// True if the text is the same in every encoding and no reader ends it early: ASCII without NUL.
inline bool IsPlain(std::string_view text) {
    std::uint64_t odd = 0;
    // Subtracting 1 from each byte sets its highest bit if it was 0.
    ForEachWord(text, [&](std::uint64_t word) { odd |= word | (word - everyByte); });
    return (odd & highBits) == 0;
}

/// Converts texts to the bytes of a file, one after the other, without cost for identical bytes.
class TextEncoder {
public:
    explicit TextEncoder(TextEncoding encoding) : encoding_(encoding) {}

    /// The bytes, valid until the next call. Characters outside the encoding become "?". So does NUL, because
    /// readers stop at it.
    std::string_view Encode(std::string_view text) { return IsPlain(text) ? text : EncodeOther(text); }
    TextEncoding Encoding() const { return encoding_; }
    /// Number of replaced characters.
    std::uint64_t Replaced() const { return replaced_; }

private:
    std::string_view EncodeOther(std::string_view text);

    TextEncoding encoding_;
    std::string bytes_;
    std::uint64_t replaced_ = 0;
};

}  // namespace vexlator::formats

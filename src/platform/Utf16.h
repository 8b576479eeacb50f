// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

/// UTF-16, little-endian, as bytes: names in some binary files.
namespace vexlator::platform {

/// Bytes that are not UTF-8 become U+FFFD.
std::string Utf16FromUtf8(std::string_view text);
/// Unpaired surrogates become U+FFFD; an odd last byte is dropped.
std::string Utf8FromUtf16(std::string_view bytes);

}  // namespace vexlator::platform

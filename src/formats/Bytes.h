// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Errors.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <string>

/// Numbers in binary files, at any offset and in either byte order.
namespace vexlator::formats {

static_assert(std::endian::native == std::endian::little,
              "numbers are read and written as they lie in memory");

template <typename T>
T LittleAt(std::span<const std::byte> bytes, std::size_t offset) {
    T value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

inline std::int32_t BigAt(std::span<const std::byte> bytes, std::size_t offset) {
    return static_cast<std::int32_t>(__builtin_bswap32(LittleAt<std::uint32_t>(bytes, offset)));
}

template <typename T>
void PutLittle(char* target, T value) {
    std::memcpy(target, &value, sizeof value);
}

inline void PutBig(char* target, std::uint32_t value) {
    PutLittle(target, __builtin_bswap32(value));
}

}  // namespace vexlator::formats

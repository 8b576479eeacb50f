// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Memory for arrays of hundreds of megabytes.
namespace vexlator::platform {

/// Resizes a block from `oldBytes` (null for 0) to `newBytes`. Its content stays; the rest is not set. Large
/// blocks grow by moving pages, not bytes, and use large pages if the system has them.
/// @throws std::bad_alloc; the old block is then unchanged
void* ResizeBlock(void* block, std::size_t oldBytes, std::size_t newBytes);

/// Frees a block of that size; null is allowed.
void FreeBlock(void* block, std::size_t bytes) noexcept;

}  // namespace vexlator::platform

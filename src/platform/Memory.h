// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Memory for arrays of hundreds of megabytes.
namespace vexlator::platform {

/// Gives a block of `oldBytes` (null for 0) the size `newBytes`; its content stays, the rest is not set.
/// Large blocks grow by moving pages, not bytes, and lie in large pages where the system has them.
/// @throws std::bad_alloc; the old block is then as it was
void* ResizeBlock(void* block, std::size_t oldBytes, std::size_t newBytes);

/// Gives back a block of that size; null is fine.
void FreeBlock(void* block, std::size_t bytes) noexcept;

}  // namespace vexlator::platform

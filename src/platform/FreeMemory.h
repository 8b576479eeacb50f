// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>

namespace vexlator::platform {

/// Bytes that this process can still take without driving others out of memory; the largest number where the
/// system does not say.
std::uint64_t FreeMemory();

}  // namespace vexlator::platform

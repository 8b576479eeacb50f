// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// Parts of dBASE III files: a header, a descriptor for each column, the records.
namespace vexlator::formats::dbf {

constexpr std::size_t fixedHeader = 32;     ///< size of the header before the first descriptor, in bytes
constexpr std::size_t descriptorSize = 32;  ///< bytes
constexpr std::size_t longestName = 10;     ///< bytes of a column's name
constexpr char endOfFields = 0x0D;          ///< after the last descriptor

}  // namespace vexlator::formats::dbf

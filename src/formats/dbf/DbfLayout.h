// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>

/// What dBASE III files are made of: a header, a descriptor for each column, the records.
namespace vexlator::formats::dbf {

constexpr std::size_t fixedHeader = 32;     ///< bytes before the first descriptor
constexpr std::size_t descriptorSize = 32;  ///< bytes
constexpr std::size_t longestName = 10;     ///< bytes of a column's name
constexpr char endOfFields = 0x0D;          ///< behind the last descriptor

}  // namespace vexlator::formats::dbf

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// What can be said of a source before it is converted, from its header and the files beside it.
struct SourceDescription {
    std::string kind;                       ///< in words, as in "shapefile"; "" when Go does nothing with it
    std::optional<std::uint64_t> features;  ///< where the header tells
    std::uint64_t bytes = 0;                ///< of the file itself
    std::string system;                 ///< name of its coordinate system, as the source says it; "" if not
    std::vector<std::string> problems;  ///< each a plain line: what is missing or cannot be read
};

/// Reads some thousand bytes at most. Never throws: what cannot be read is a problem.
SourceDescription DescribeSource(const config::Run& run, std::string_view path);

/// True for the extensions that Go does something with.
bool IsGoSource(std::string_view path);

}  // namespace vexlator::startup

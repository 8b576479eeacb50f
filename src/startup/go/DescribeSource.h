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

/// What is wrong with a source. Windows have the words.
struct SourceProblem {
    enum class What {
        Unconvertible,  ///< Go does nothing with this kind of file
        Gone,           ///< there is no such file
        Empty,
        CompanionMissing,  ///< `name`: file beside it
        NoImport,          ///< `name`: kind of file
        NoShapefile,       ///< it does not begin as one
        Unreadable,        ///< `name`: the reader's own words
        NoMapSheetXml,     ///< no companion XML of a PDF
        NoWorldFile,       ///< of an image
        NoConverter,       ///< of CAD drawings
        NoBuilder          ///< `name`: folder where the background builder should be
    };
    What what;
    std::string name = {};
};

/// What can be said of a source before it is converted, from its header and the files beside it.
struct SourceDescription {
    std::string kind;                       ///< in words, as in "shapefile"; "" when Go does nothing with it
    std::optional<std::uint64_t> features;  ///< where the header tells
    std::uint64_t bytes = 0;                ///< of the file itself
    std::string system;  ///< name of its coordinate system, as the source says it; "" if not
    std::vector<SourceProblem> problems = {};
};

/// Reads some thousand bytes at most. Never throws: what cannot be read is a problem.
SourceDescription DescribeSource(const config::Run& run, std::string_view path);

/// Of the files of a folder and of those below it, those that Go does something with, but for photographs:
/// images that no world file places, in the folder of a job or below.
std::vector<std::string> GoSourcesAmong(std::vector<std::string> files);

}  // namespace vexlator::startup

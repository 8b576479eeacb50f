// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"

#include <string>

namespace vexlator::grpinfo {

/// The contents of a proved package in lines for the user.
std::string SummaryText(const background::PackageReader& package, const background::PackageCounts& counts);

/// The same as one JSON object, with its members (tile files, or packages of a mosaic) and their boxes
/// [minimum x, minimum y, maximum x, maximum y].
std::string SummaryJson(const background::PackageReader& package, const background::PackageCounts& counts);

}  // namespace vexlator::grpinfo

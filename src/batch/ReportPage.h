// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Journal.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// Pictures of drawings, by the native path of the drawing: PNG files as bytes.
using Pictures = std::map<std::string, std::string>;

/// The drawing that a finished command has made or exported.
std::string DrawingOf(const Entry& entry);

/// The report of a batch run: one self-contained HTML file with the journal's data about each command of the
/// list.
std::string ReportPage(std::string_view list, const std::vector<std::string>& commands, Journal& journal,
                       const Pictures& pictures);

}  // namespace vexlator::batch

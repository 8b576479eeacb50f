// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Journal.h"
#include "batch/ReportPage.h"

#include <string>
#include <vector>

namespace vexlator::batch {

/// Small pictures of the first drawings that the commands made or exported, limited in number, drawn by
/// vdfpicture. None if that program is not beside this one. A drawing with an error has none.
/// @throws platform::Stopped
Pictures DrawPictures(const std::vector<std::string>& commands, Journal& journal, std::size_t most,
                      unsigned jobs);

}  // namespace vexlator::batch

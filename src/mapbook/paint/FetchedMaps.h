// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/paint/BookPages.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::mapbook {

/// Has the map tool of the plan make an image of each page's ground, which the pages then name. The tool is
/// started with the argument GET; it reads section BKGND of the request file (PIXSIZE, WINDOW, SAVEVDF) and
/// writes c:\bkgnd.jpg, which moves to the folder. `tell` gets a line about each page without an image.
/// @throws platform::WriteError, platform::Stopped
void FetchMaps(const BookPlan& plan, const render::Scene& scene, std::vector<BookPage>& pages,
               const std::string& folder, const std::function<void(std::string_view)>& tell);

}  // namespace vexlator::mapbook

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/BookPlan.h"
#include "mapbook/PageLayout.h"
#include "mapbook/SurveyReport.h"
#include "render/Scene.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::mapbook {

/// Neighbours of a page by the side of the frame on which they lie.
struct Neighbours {
    std::optional<int> left, top, right, bottom;  ///< page numbers
};

enum class PageKind {
    Frame,
    Report,  ///< of the survey
    Index    ///< the whole drawing, with all frames
};

struct BookPage {
    std::string name;
    PageKind kind = PageKind::Frame;
    int number = 0;          ///< of its frame
    std::string count = {};  ///< as in "3 of 12"
    drawing::Box frame = {};
    PageLayout layout = {};
    Neighbours neighbours = {};
    std::string backgroundImage = {};  ///< native path of the map behind it; "": none
    std::size_t firstEntry = 0;        ///< of a report page
};

/// The pages of a book in their order: those of the frames, those of the report, "Full Job" last. Without
/// frames and with a grid, frames are laid over everything that the drawing shows, row by row from the
/// north-west, none of them empty. `tell` gets a line about each frame that shows nothing.
/// @throws std::runtime_error for a grid of more pages than anybody prints
std::vector<BookPage> PagesOf(BookPlan& plan, const render::Scene& scene, const SurveyReport& report,
                              const std::function<void(std::string_view)>& tell);

/// Metres of a ground unit: those of a degree of latitude if the drawing is in degrees.
double MetresPerUnit(const render::Scene& scene);

/// The layers of which something can be on a page, in order.
std::vector<const render::SceneLayer*> LayersOn(const render::Scene& scene, const drawing::Box& ground);

}  // namespace vexlator::mapbook

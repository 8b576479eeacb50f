// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/Frames.h"
#include "mapbook/JobData.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vexlator::mapbook {

/// All that the program which draws a book has to know.
struct BookPlan {
    std::string drawing;  ///< path texts
    std::string symbolsFolder;
    std::string package;     ///< the map behind the pages; "": none
    std::string mapProgram;  ///< makes the map behind a page; "": none
    std::string mapRequest;  ///< the settings file that it reads
    std::string folder;      ///< for the results, which are named after the job
    std::string job;
    bool images = true;          ///< page images are written
    bool drawsPdf = false;       ///< the PDF file is drawn
    bool listsPages = false;     ///< a list of the page images is written: JOB.CFG
    std::string framesLayer;     ///< is not shown
    std::string paper;           ///< as in LayoutChoice
    int grid = 0;                ///< scale of pages over everything if there are no frames; 0: none
    int least = 0, most = 9999;  ///< numbers of such pages
    bool hasReport = false;      ///< of the drainage survey
    std::pair<std::string, std::string> logos;  ///< of the report; files that can be missing
    std::string system;                         ///< definition of the coordinate system; "": none
    std::string date;                           ///< of today
    JobData titles;
    std::vector<PageFrame> frames;

    std::string PathOf(std::string_view extension) const;
    /// Of a page's image.
    std::string ImagePath(std::string_view page) const;
};

/// The text of the file with the plan, an INI file, and back.
std::string BookPlanText(const BookPlan& plan);
BookPlan ReadBookPlan(std::string_view text);

}  // namespace vexlator::mapbook

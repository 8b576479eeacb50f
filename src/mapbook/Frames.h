// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/DrawingFile.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::mapbook {

/// The part of the ground that a page shows.
struct PageFrame {
    int number = 0;
    std::string name;  ///< of the page, safe and unique in its book, as in "SHEET-3"
    drawing::Box ground;
};

/// Which frames of a drawing are pages.
struct FrameChoice {
    std::string layer;           ///< any letter case
    int least = 0, most = 9999;  ///< page numbers
    std::string symbolsFolder;   ///< for frames whose symbol the drawing does not hold
};

/// The page frames of a drawing: its inserts on that layer, by number. A frame's ground is the box around its
/// placed symbol; if the symbol draws nothing, a page at 1:500 around it. The number is the value of an
/// attribute named like a page number (SEQ, PAGE, SHEET, NUMBER ...), else of the first attribute that is a
/// whole number, else the frame's place among the frames. `tell` gets a line about each number that several
/// frames have.
/// @throws platform::ReadError
std::vector<PageFrame> FindFrames(drawing::DrawingFile& file, const FrameChoice& choice,
                                  const std::function<void(std::string_view)>& tell);

/// Sorts frames by number and names them after the layer, with "-" and the number; those with the number of
/// another one get "_2" and so on.
void NameFrames(std::vector<PageFrame>& frames, std::string_view layer,
                const std::function<void(std::string_view)>& tell);

}  // namespace vexlator::mapbook

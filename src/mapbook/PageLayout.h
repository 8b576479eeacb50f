// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/Drawing.h"
#include "util/Geometry.h"

#include <string>
#include <string_view>

/// The geometry of a page: its paper, its scale, and where map and title block lie on it.
namespace vexlator::mapbook {

enum class PaperSize { A4, A3 };

/// Millimetres from the paper's upper left corner.
struct PaperBox {
    double left = 0, top = 0, right = 0, bottom = 0;
    double Width() const { return right - left; }
    double Height() const { return bottom - top; }
};

struct PageLayout {
    PaperSize size = PaperSize::A4;
    double width = 0, height = 0;  ///< of the paper
    PaperBox map;
    PaperBox titles, legend, marks;  ///< the fields; the legend; scale bar and north arrow
    int legendColumns = 1;
    double denominator = 1;  ///< of the scale
    drawing::Box ground;     ///< of the map

    bool IsPortrait() const { return height > width; }
    /// As in "A4 portrait".
    std::string PaperText() const;
    double MillimetresPerUnit(double metresPerUnit) const { return 1000 * metresPerUnit / denominator; }
};

/// What decides about a page beside its frame.
struct LayoutChoice {
    std::string paper;         ///< "A4", "A3"; else by the frame
    double metresPerUnit = 1;  ///< of the ground's units
    double denominator = 0;    ///< of a given scale; 0: the largest round scale that shows the frame
};

/// The page for a frame, which is in the middle of the map: portrait or landscape, whichever allows the
/// larger scale; A3 if A4 would not allow 1:500 and A3 allows one and a half times the scale.
PageLayout LayoutFor(const drawing::Box& frame, const LayoutChoice& choice);

/// The smallest round number from the scales of maps (1, 1.25, 2, 2.5 and 5 times a power of ten) that is not
/// less.
double RoundDenominator(double least);

/// The ground of an A4 page at 1:500 around a position.
drawing::Box UsualFrame(util::PlanePoint middle);

}  // namespace vexlator::mapbook

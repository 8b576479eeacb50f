// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

class QPainter;
class QRectF;

namespace vexlator::mapbook {

/// A value with its name above it.
struct TitleField {
    std::string label, value;
    bool isLarge = false;
};

/// Fields side by side, of equal width.
struct TitleRow {
    std::vector<TitleField> fields;
    int lines = 1;  ///< of text that the values may take
};

/// Draws the rows below each other, so that they fill the rectangle. Values that are too long are elided.
void PaintTitleBlock(QPainter& painter, const QRectF& area, double pixelsPerMillimetre,
                     const std::vector<TitleRow>& rows);

}  // namespace vexlator::mapbook

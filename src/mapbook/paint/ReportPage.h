// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "mapbook/BookPlan.h"
#include "mapbook/SurveyReport.h"
#include "mapbook/paint/BookPages.h"

class QPainter;

namespace vexlator::mapbook {

/// Draws a page of the survey report: title, logos, inspector and line, and a table with a row for each
/// symbol. Needs a QGuiApplication.
void PaintReport(QPainter& painter, const BookPlan& plan, const SurveyReport& report, const BookPage& page,
                 double pixelsPerMillimetre);

/// The rows of a page.
constexpr std::size_t reportRows = 22;

}  // namespace vexlator::mapbook

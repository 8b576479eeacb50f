// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Outcome.h"
#include "config/Run.h"
#include "drawing/DrawingFile.h"
#include "mapbook/BookPlan.h"
#include "mapbook/BookSettings.h"
#include "mapbook/SurveyLayout.h"
#include "ui/UserInterface.h"

#include <memory>
#include <string>
#include <string_view>

namespace vexlator::mapbook {

/// Makes map books: a page for each page frame of a drawing and one of the whole drawing, as JPEG files and
/// as a PDF file. The program MapBookPrinter draws the pages, because a painter would make every start of
/// this one slower.
class frmPDF {
public:
    explicit frmPDF(config::Run& run) : run_(run) {}

    /// Makes the book of a drawing with the settings of gv.ini. Its files appear together; the drawing stays
    /// as it is. The folder is [PDF] FOLDER, `targetPath` if that is "." or if the user has named a folder.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);
    /// The same with these settings, which gv.ini gets.
    config::Outcome btnPrintNow_Click(const BookSettings& settings, std::string_view drawingPath,
                                      std::string_view targetPath);
    /// Gives the drawing itself the layout of drainage surveys. With a folder named by the user, that gets
    /// the changed drawing, and the drawing stays as it is.
    /// @throws platform::ReadError, platform::WriteError; then the drawing is unchanged
    config::Outcome ReStyle(std::string_view drawingPath, std::string_view targetPath);

    // --- Of the open drawing

    /// Makes sure that it has the symbols of drainage surveys. Line types need no definition in a drawing:
    /// their names are enough for everything that draws.
    void DefineComplexLineStyles();
    /// Deletes every entity of a layer.
    void EraseLayer(std::string_view name);
    drawing::Drawing& OpenDrawing() { return drawing_; }

private:
    config::Outcome Produce(const BookSettings& settings, std::string_view drawingPath,
                            std::string_view targetPath);
    /// The plan but for the drawing's path.
    BookPlan PlanOf(const BookSettings& settings, std::string_view drawingPath, std::string_view targetPath);
    std::string FolderFor(const BookSettings& settings, std::string_view targetPath) const;
    std::vector<PageFrame> FramesOf(drawing::DrawingFile& file, const BookSettings& settings);
    void Prepare(const BookSettings& settings, const LayoutSizes& sizes);
    void ApplySurveyLayout(const LayoutSizes& sizes);
    void ScaleSymbols(const std::string& size);
    void DefineSymbol(std::string_view name, void (*draw)(drawing::Drawing&));
    bool Print(const BookPlan& plan, const std::string& scratch, config::Outcome& outcome);
    void JoinImages(const BookPlan& plan);

    config::Run& run_;
    std::unique_ptr<ui::FormView> view_;
    drawing::Drawing drawing_;
};

}  // namespace vexlator::mapbook

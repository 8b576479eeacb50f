// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/DrawingSink.h"
#include "import/SourceFiles.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// What every import does around its sources: shows its form, fills a drawing, counts, and saves.
class ImportRun {
public:
    enum class Existing { Replaced, AddedTo };

    ImportRun(config::Run& run, std::string_view form) : run_(run), form_(form) {}

    /// Shows the form. The drawing is that of DrawingPath(); one that is there is opened when it is added to.
    /// @throws platform::ReadError for such a drawing
    void Begin(std::string_view sourcePath, std::string_view folder, Existing existing = Existing::Replaced);
    /// Calls `importFile(path)` for `sourcePath` and the files of `fileList` (see SourceFiles()); false from
    /// it means that something was left out.
    template <typename ImportFile>
    void ForEachSource(std::string_view sourcePath, std::string_view fileList, ImportFile importFile) {
        for (const std::string& path : SourceFiles(sourcePath, fileList))
            if (!importFile(path)) LeaveOut();
    }
    /// Saves the drawing. An import that took no feature from any source never replaces a drawing: one line
    /// says that it stays, and the outcome is Failed, or StoppedByUser when it was that before. Where there
    /// is no drawing, the empty one is saved. @throws platform::WriteError
    config::Outcome Finish();
    /// Ends an import that has nothing to save. One line says so of a drawing that is there.
    config::Outcome SaveNothing();

    ui::FormView& View() { return *view_; }
    drawing::DrawingSink& Sink() { return sink_; }
    drawing::Drawing& Drawing() { return sink_.Drawing(); }
    const std::string& Target() const { return outcome_.target; }

    void CountFeatures(std::uint64_t features) { outcome_.features += features; }
    std::uint64_t Features() const { return outcome_.features; }
    /// Something could not be read, or an answer left it out; the person has been told.
    void LeaveOut(config::Outcome::Status status = config::Outcome::Status::Failed) {
        if (outcome_.status != config::Outcome::Status::StoppedByUser) outcome_.status = status;
    }

private:
    config::Run& run_;
    std::string form_;
    drawing::DrawingSink sink_;
    std::unique_ptr<ui::FormView> view_;
    config::Outcome outcome_;
};

}  // namespace vexlator::importer

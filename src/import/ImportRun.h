// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/DrawingSink.h"
#include "import/SourceFiles.h"
#include "platform/Errors.h"
#include "platform/Paths.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// The common steps of every import: shows its form, fills a drawing, counts, and saves.
class ImportRun {
public:
    enum class Existing { Replaced, AddedTo };

    ImportRun(config::Run& run, std::string_view form) : run_(run), form_(form) {}

    /// Shows the form. The drawing is that of DrawingPath(). An existing drawing is opened if the import adds
    /// to it.
    /// @throws platform::ReadError for such a drawing
    void Begin(std::string_view sourcePath, std::string_view folder, Existing existing = Existing::Replaced);
    /// Calls `importFile(path)` for `sourcePath` and the files of `fileList` (see SourceFiles()); false from
    /// it means that something was left out. Of several sources one whose error ends it is told and left out
    /// from there on; `importFile` has counted what was taken of it.
    /// @throws platform::ReadError from an only source
    template <typename ImportFile>
    void ForEachSource(std::string_view sourcePath, std::string_view fileList, ImportFile importFile) {
        const std::vector<std::string> paths = SourceFiles(sourcePath, fileList);
        for (const std::string& path : paths) {
            const std::uint64_t before = Features();
            sink_.Keep();
            try {
                if (!importFile(path)) LeaveOut();
            } catch (const platform::ReadError& error) {
                if (paths.size() == 1) throw;
                LeaveRest(error.InFile(platform::NativePath(path)), Features() - before);
            }
        }
    }
    /// Saves the drawing. An import that took no feature from any source never replaces a drawing, nor does
    /// one all of whose features come from sources that an error ended: one line says that the drawing stays,
    /// and the outcome is Failed, or StoppedByUser when it was that before. Where there is no drawing, the
    /// empty one is saved, unless an error ended a source. @throws platform::WriteError
    config::Outcome Finish();
    /// Ends an import that has nothing to save. One line says that a drawing stays, or is not made.
    config::Outcome SaveNothing();

    ui::FormView& View() { return *view_; }
    drawing::DrawingSink& Sink() { return sink_; }
    drawing::Drawing& Drawing() { return sink_.Drawing(); }
    const std::string& Target() const { return outcome_.target; }

    void CountFeatures(std::uint64_t features) { outcome_.features += features; }
    std::uint64_t Features() const { return outcome_.features; }
    /// A source could not be read, or an answer left it out; the user has seen a message.
    void LeaveOut(config::Outcome::Status status = config::Outcome::Status::Failed) {
        if (outcome_.status != config::Outcome::Status::StoppedByUser) outcome_.status = status;
    }

private:
    void LeaveRest(const platform::ReadError& error, std::uint64_t taken);

    config::Run& run_;
    std::string form_;
    drawing::DrawingSink sink_;
    std::unique_ptr<ui::FormView> view_;
    config::Outcome outcome_;
    bool damaged_ = false;              ///< an error ended a source
    std::uint64_t takenOfDamaged_ = 0;  ///< features
};

}  // namespace vexlator::importer

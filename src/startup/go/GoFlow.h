// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Run.h"
#include "platform/Files.h"
#include "startup/Conversions.h"
#include "startup/ExitStatus.h"
#include "startup/go/RowResult.h"
#include "startup/go/SelectionSettings.h"

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

class RowInterface;

/// What the button Go of the selection window does, without the window: sources become background packages.
/// Messages, questions and progress go to the run's UserInterface, always from the thread that called Go().
/// The files of a list are converted several at a time, in threads and runs of their own; their messages come
/// in the list's order. One Go at a time works in a TempDirectory; others wait for it.
/// A cancel is an exception from FormView::Progress, platform::Stopped or any that is no std::exception: it
/// arrives ten times a second, all conversions unwind, outputs that were there stay whole, and Go() throws it
/// on. The window that shows the flow's own form gets the name frmZSelect from ShowForm().
class GoFlow {
public:
    /// Called in the thread of Go() whenever a row of Rows() has changed, with its number, and once with
    /// Rows().size() when the list of rows is known.
    using RowChanged = std::function<void(std::size_t row)>;

    struct Options {
        Conversions conversions = AllConversions();
        RowChanged rowChanged = {};
        unsigned atOnce = 0;  ///< files of a list; 0: as many as there are processors
    };

    /// `run` outlives the flow.
    GoFlow(config::Run& run, Options options) : run_(run), options_(std::move(options)) {}

    /// Saves the choices, then converts. What it did is in Rows(); one line sums it up.
    /// Done: every row is. Failed: some row is, or none could begin for a reason that was shown.
    /// NothingToDo: there is no source. @throws what FormView::Progress throws, platform::Stopped
    ExitStatus Go(const SelectionSettings& choices);
    /// Converts the rows again that are not Done, with the choices of Go(); nothing is cleared or saved.
    ExitStatus RunAgain();
    const std::vector<RowResult>& Rows() const { return rows_; }

private:
    std::unique_ptr<platform::FileLock> WaitForTurn();
    bool FindSources();
    bool PrepareTarget();
    void CopyCoordinateSystem();
    ExitStatus Dispatch();
    ExitStatus ConvertMapDocument();
    ExitStatus ConvertFileList(const std::string& source, bool all);
    ExitStatus ConvertAlone(const std::string& source);
    ExitStatus ConvertFiles(const std::vector<std::string>& sources);
    ExitStatus ConvertRows();
    void ConvertHere(std::size_t index);
    void ConvertAtOnce(const std::vector<std::size_t>& waiting, ui::FormView& view);
    RowResult ConvertRow(RowResult row, RowInterface& ui) const;
    void KeepLosses(const RowResult& row, config::Run& run) const;
    void Assemble();
    ExitStatus SumUp();
    void Changed(std::size_t row);

    config::Run& run_;
    Options options_;
    SelectionSettings choices_;
    std::vector<RowResult> rows_;
    bool isList_ = false;
    mutable std::mutex losses_;  ///< guards those of run_
};

config::KeyList TargetKeys();

/// Performs a GO command without its window, and says what a signal left. @param received as Main got it
ExitStatus PerformGo(config::Run& run, std::string_view received);

/// Lists the files of the folder of `path` that have its extension, as paths in directory order.
std::vector<std::string> FilesOfKind(std::string_view path);
/// Deletes the files of packages in the folder and its sub-folders, and sub-folders that are empty then.
void ClearTargetFolder(std::string_view folder);

}  // namespace vexlator::startup

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Entry.h"
#include "platform/Files.h"
#include "platform/JournalFile.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::batch {

/// The record of a batch run, line by line, on the disk. The whole report comes from it.
class Journal {
public:
    /// @throws platform::WriteError, also if another run has the journal
    explicit Journal(std::string_view path) : file_(path) {}

    /// Reads the results of earlier runs.
    /// @returns the number of unreadable lines; their commands count as not run
    std::size_t ReadEarlier();
    /// Begins a run. A run that does not resume makes all earlier lines void. @throws platform::WriteError
    void Begin(std::string_view list, std::size_t commands, bool resume);
    /// Adds the lines of entries. @throws platform::WriteError
    void Append(const std::vector<Entry>& entries);
    /// The last entry of a command, from this run or the runs that it resumes.
    std::optional<Entry> Last(const std::string& command);
    const std::string& Name() const { return file_.Name(); }

private:
    struct Place {
        std::uint64_t offset = 0, size = 0;
    };
    platform::JournalFile file_;
    std::optional<platform::MappedFile> map_;
    std::map<std::string, Place, std::less<>> last_;  ///< by command; the lines themselves stay on the disk
};

}  // namespace vexlator::batch

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

/// What a night did, line by line, on the disk. All that is reported of it comes from here.
class Journal {
public:
    /// @throws platform::WriteError, also when another run has the journal
    explicit Journal(std::string_view path) : file_(path) {}

    /// Takes in what earlier runs did.
    /// @returns how many lines could not be read; their commands count as not run
    std::size_t ReadEarlier();
    /// Begins a run. One that does not resume makes everything that stands above its first line void.
    /// @throws platform::WriteError
    void Begin(std::string_view list, std::size_t commands, bool resume);
    /// Adds the lines of entries. @throws platform::WriteError
    void Append(const std::vector<Entry>& entries);
    /// The last entry of a command, from this run or those that it goes on with.
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

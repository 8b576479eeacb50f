// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/Entry.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vexlator::batch {

/// A folder beside a journal, shared by several machines: lists of commands, each with the journal that a
/// batch of its own writes of it, and the name of the job array that runs them. It is there from before the
/// array is submitted until all that the journals say has been taken over.
class Slices {
public:
    /// @param journal native path of the journal that takes over
    explicit Slices(const std::string& journal);

    /// Whether a run left the folder, submitted or not.
    bool AreThere() const;
    /// The name of the array that an earlier run began to submit; "" when it did not come so far.
    std::string ArrayName() const;
    /// Makes the folder anew. @throws platform::WriteError
    void Make(const std::vector<std::vector<std::string>>& lists, const std::string& script,
              const std::string& arrayName);
    /// The lists that the folder has, for a run that goes on with an earlier one's.
    void Find();
    void Remove();

    using Take = std::function<void(std::vector<Entry> entries)>;
    /// Gives the entries of the lines that have been added since the last time.
    void TakeNew(const Take& take);

    std::size_t Count() const { return taken_.size(); }
    /// Native path.
    const std::string& Folder() const { return folder_; }
    std::string ListPath(std::size_t number) const;  ///< from 1

private:
    std::string folder_;
    std::vector<std::uint64_t> taken_;  ///< bytes of each journal
};

}  // namespace vexlator::batch

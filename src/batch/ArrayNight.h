// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "batch/JobArray.h"
#include "batch/Night.h"
#include "batch/Slices.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace vexlator::batch {

/// Runs commands on the machines of a Slurm cluster that share the folders of their files: as one job array,
/// each of whose tasks is a batch of its own with a slice of the list. What their journals say is taken over
/// while they run. Commands of one drawing are in one slice, in the order of the list.
class ArrayNight : public CommandRunner {
public:
    ArrayNight(const Options& options, const startup::Conversions& conversions,
               const std::vector<std::string>& commands, Journal& journal);

    /// Brings to its end what an earlier run has submitted for this journal and left behind: two must not do
    /// the same. One that resumes waits for it and takes over what it did.
    /// @throws SlurmError when the array is still at work, and this run does not resume; platform::Stopped
    void FinishEarlier();
    /// As CommandRunner has it. @throws SlurmError, with nothing submitted
    void Run() override;

private:
    using Lists = std::vector<std::vector<std::string>>;

    void TakeOver(const JobArray& array, JobArray::State state);
    /// The commands that have to run, dealt out to at most so many slices.
    Lists Deal();
    void KeepAsDone(const Entry& entry, const CommandPaths& paths);
    std::string Script() const;
    void Submit(const Lists& lists);
    /// Until all commands have ended, or the array has.
    void Await(const JobArray& array, std::size_t commands);
    void Cancel(const JobArray& array);
    void TakeNew();
    void Count(const Entry& entry);
    void TellLost(const Lists& lists) const;

    const Options& options_;
    const startup::Conversions& conversions_;
    const std::vector<std::string>& commands_;
    Journal& journal_;
    Slices slices_;
    struct Ended {
        Status status;
        bool hasLosses;
    };
    std::unordered_map<std::string, Ended> ended_;  ///< commands; a task that begins anew can repeat some
};

}  // namespace vexlator::batch

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace vexlator::batch {

/// Why Slurm does not take a job.
class SlurmError : public std::runtime_error {
public:
    using runtime_error::runtime_error;
};

/// A job array of Slurm, known by a name that no other of this user has.
class JobArray {
public:
    explicit JobArray(std::string name) : name_(std::move(name)) {}
    /// A name for an array that is to be submitted.
    static std::string NewName();

    /// How the array is to run.
    struct Form {
        std::string script;  ///< native path; its tasks find their number, from 1, in SLURM_ARRAY_TASK_ID
        std::string output;  ///< native path of what a task prints, %a for its number
        std::size_t tasks = 0;
        unsigned processors = 1;  ///< of a task
        std::string options;      ///< further ones of sbatch
    };
    /// @returns the number that Slurm gives the array. @throws SlurmError
    std::string Submit(const Form& form) const;

    enum class State { Alive, Ended, Unknown };
    /// Whether tasks of the array wait or run. Unknown: Slurm gives no answer now.
    State Look() const;
    /// Has Slurm end all tasks: they are asked to stop, and killed when they do not.
    void Cancel() const;

private:
    std::string name_;
};

}  // namespace vexlator::batch

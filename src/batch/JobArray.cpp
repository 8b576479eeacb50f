// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/JobArray.h"

#include "batch/Entry.h"
#include "platform/Process.h"
#include "util/Text.h"

#include <unistd.h>
#include <utility>
#include <vector>

namespace vexlator::batch {

using platform::CaptureProgram;
using platform::ProgramResult;

namespace {

std::string OneLine(std::string_view text) {
    while (text.ends_with('\n')) text.remove_suffix(1);
    return util::ReplaceAll(text, "\n", "; ");
}

}  // namespace

std::string JobArray::NewName() {
    return "vexlator-" + TimeText(Now(), 9) + "-" + std::to_string(::getpid());
}

std::string JobArray::Submit(const Form& form) const {
    std::vector<std::string> arguments{"sbatch", "--cpus-per-task=" + std::to_string(form.processors)};
    for (std::string& option : platform::SplitArguments(form.options)) arguments.push_back(std::move(option));
    // What counts is the last of a kind.
    for (std::string option : {"--parsable", "--requeue"}) arguments.push_back(std::move(option));
    arguments.push_back("--job-name=" + name_);
    arguments.push_back("--array=1-" + std::to_string(form.tasks));
    arguments.push_back("--output=" + form.output);
    arguments.push_back(form.script);
    ProgramResult result = CaptureProgram(std::move(arguments));
    if (result.status < 0) throw SlurmError("--slurm needs the program sbatch, which cannot be started");
    if (result.status != 0) throw SlurmError("Slurm does not take the batch: " + OneLine(result.output));
    // Warnings stand on lines before the number, a cluster's name behind it.
    std::size_t begin = result.output.find_last_of('\n', result.output.find_last_not_of('\n')) + 1;
    return result.output.substr(begin, result.output.find_first_of(";\n", begin) - begin);
}

JobArray::State JobArray::Look() const {
    ProgramResult result = CaptureProgram({"squeue", "--me", "--noheader", "--format=%i", "--name=" + name_});
    if (result.status != 0) return State::Unknown;
    return result.output.empty() ? State::Ended : State::Alive;
}

void JobArray::Cancel() const {
    CaptureProgram({"scancel", "--quiet", "--name=" + name_});
}

}  // namespace vexlator::batch

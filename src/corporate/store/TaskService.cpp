// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/TaskService.h"

#include "config/ConversionReport.h"
#include "corporate/store/HandoffCommand.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/Signals.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <exception>

namespace vexlator::corporate {

namespace {

/// Who waits for the log learns the reason.
void WriteFailure(const std::string& log, const std::string& reason) {
    config::ConversionReport report;
    report.error = reason;
    report.outcome.status = config::Outcome::Status::Failed;
    platform::ReplaceFile(log, report.Text());
}

}  // namespace

std::size_t TaskService::PerformAll(const std::function<void(const std::string&)>& tell) {
    std::size_t count = 0;
    for (const std::string& name : platform::ListFiles(folder_)) {
        if (!platform::SameNoCase(util::ExtensionOf(name), "task")) continue;
        platform::ThrowIfStopped();
        const std::string task = util::JoinPath(folder_, name);
        try {
            platform::ExclusiveUse own(task, "another service performs it");
            if (!platform::FileExists(task)) continue;  // it has just been performed
            tell(name + ": " + Perform(task));
            platform::RemoveFile(task);
            ++count;
        } catch (const platform::WriteError&) {  // by another service
        } catch (const platform::ReadError&) {   // it has gone
        }
    }
    return count;
}

/// Returns how it ended, for the user.
std::string TaskService::Perform(const std::string& task) const {
    std::vector<std::string> arguments = platform::SplitArguments(platform::ReadWholeFile(task));
    std::string log = util::ChangeExtension(task, "LOG");
    try {
        HandoffCommand command = ParseHandoff(arguments);
        log = command.LogPath();
        // What a killed service made, or an earlier task: an import would add to it.
        if (command.isImport) platform::RemoveFile(command.drawing);
    } catch (const WrongUse& error) {
        WriteFailure(log, platform::NativePath(task) + ": " + error.what());
        return error.what();
    }
    arguments.insert(arguments.begin(), program_);
    platform::ProgramResult result = platform::CaptureProgram(arguments);
    if (util::FileSize(log) == 0)
        WriteFailure(log, program_ + " ended with exit status " + std::to_string(result.status) + ": " +
                              result.output);
    return result.status == 0 ? "done" : "failed: " + result.output;
}

}  // namespace vexlator::corporate

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Batch.h"

#include "batch/ArrayNight.h"
#include "batch/CommandList.h"
#include "batch/Night.h"
#include "batch/Pictures.h"
#include "batch/Progress.h"
#include "batch/ReportPage.h"
#include "batch/Summary.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "util/Counted.h"
#include "util/Paths.h"

#include <cstdio>
#include <memory>

namespace vexlator::batch {

namespace {

using startup::ExitStatus;

class Batch {
public:
    Batch(const Options& options, const Perform& perform, CommandList list)
        : options_(options), perform_(perform), list_(std::move(list)) {}

    ExitStatus Run() {
        Journal journal(list_.journal);
        if (options_.resume) ReadEarlier(journal);
        std::unique_ptr<CommandRunner> night = MakeRunner(journal);
        journal.Begin(list_.name, list_.commands.size(), options_.resume);
        ExitStatus status = RunNight(*night);
        std::fputs(SummaryText(night->Result(), night->Seconds(), list_.commands, journal).c_str(), stderr);
        Tell("journal " + journal.Name());
        if (options_.noReport) return status;
        if (!WriteReport(journal, status) && status == ExitStatus::Done) return ExitStatus::Failed;
        return status;
    }

    /// Prints the commands that would run.
    ExitStatus Rehearse() {
        std::optional<Journal> journal;
        if (options_.resume && platform::FileExists(list_.journal))
            ReadEarlier(journal.emplace(list_.journal));
        for (const std::string& command : list_.commands) {
            std::optional<Entry> last = journal ? journal->Last(command) : std::nullopt;
            CommandPaths paths = PathsOf(conversions_, command);
            if (last && (IsStillDone(*last, paths) || HasEndedUnseen(*last, paths))) continue;
            std::puts(command.c_str());
        }
        return std::fflush(stdout) == 0 ? ExitStatus::Done : ExitStatus::Failed;
    }

private:
    static void ReadEarlier(Journal& journal) {
        if (std::size_t damaged = journal.ReadEarlier())
            Tell(util::Counted(damaged, "line") + " of " + journal.Name() +
                 " cannot be read; their commands run again");
    }
    std::unique_ptr<CommandRunner> MakeRunner(Journal& journal) const {
        auto array = std::make_unique<ArrayNight>(options_, conversions_, list_.commands, journal);
        array->FinishEarlier();
        if (options_.slurm) return array;
        return std::make_unique<Night>(options_, perform_, conversions_, list_.commands, journal);
    }
    static ExitStatus RunNight(CommandRunner& night) {
        try {
            night.Run();
        } catch (const platform::Stopped&) {
            platform::AcceptStop();
            Tell("stopped; --resume continues from here");
            return ExitStatus::Interrupted;
        } catch (const platform::WriteError& error) {
            Tell("stopped, because the journal cannot be written: " + std::string(error.what()) +
                 "; --resume continues from here");
            return ExitStatus::Failed;
        }
        return night.Result().NotDone() == 0 ? ExitStatus::Done : ExitStatus::Failed;
    }
    /// A report without pictures is better than none.
    Pictures TakePictures(Journal& journal) const {
        try {
            return DrawPictures(list_.commands, journal, options_.pictures, Jobs(options_));
        } catch (const platform::Stopped&) {
            platform::AcceptStop();
        } catch (const std::runtime_error& error) {
            Tell("no pictures in the report: " + std::string(error.what()));
        }
        return {};
    }
    bool WriteReport(Journal& journal, ExitStatus status) const {
        std::string path =
            options_.report.empty() ? util::ChangeExtension(list_.journal, "html") : options_.report;
        try {
            Pictures pictures;
            if (status != ExitStatus::Interrupted) pictures = TakePictures(journal);
            platform::ReplaceFile(path, ReportPage(list_.name, list_.commands, journal, pictures));
            Tell("report  " + platform::NativePath(platform::AbsolutePath(path)));
            return true;
        } catch (const std::runtime_error& error) {
            Tell("message: no report: " + std::string(error.what()));
            return false;
        }
    }

    const Options& options_;
    const Perform& perform_;
    startup::Conversions conversions_ = startup::AllConversions();
    CommandList list_;
};

ExitStatus RunList(const Options& options, const Perform& perform) {
    CommandList list = ReadCommands(options, startup::AllConversions());
    for (const std::string& remark : list.remarks) Tell(remark);
    if (list.commands.empty()) {
        Tell("vexlator: there is no command in " + list.name);
        return ExitStatus::NothingToDo;
    }
    Batch batch(options, perform, std::move(list));
    return options.dryRun ? batch.Rehearse() : batch.Run();
}

}  // namespace

ExitStatus Run(const Options& options, const Perform& perform) {
    try {
        return RunList(options, perform);
    } catch (const platform::Stopped&) {
        Tell("stopped before the first command began");
        return ExitStatus::Interrupted;
    } catch (const std::exception& error) {
        Tell("vexlator: " + std::string(error.what()));
        return ExitStatus::NotUsable;
    }
}

}  // namespace vexlator::batch

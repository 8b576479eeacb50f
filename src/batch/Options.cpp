// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Options.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <cmath>
#include <utility>

namespace vexlator::batch {

namespace {

struct Flag {
    std::string_view name;
    bool Options::*member;
};
constexpr Flag flags[] = {
    {"--resume", &Options::resume}, {"--dry-run", &Options::dryRun}, {"--json", &Options::json},
    {"--yes", &Options::yesToAll},  {"--strict", &Options::strict},  {"--help", &Options::help},
    {"-h", &Options::help},         {"--slurm", &Options::slurm},    {"--no-report", &Options::noReport},
};

/// A number above 0 and at most `most`; otherwise the error says which values are valid.
double NumberIn(Options& options, std::string_view name, std::string_view value, double most) {
    double number = util::NumberOf(value);
    if (!util::IsWhollyNumber(value) || number < 0 || number > most)
        options.error = std::string(name) + " takes a number from 0 to " + util::FormatShortest(most) +
                        ", not \"" + std::string(value) + "\"";
    return options.error.empty() ? number : 0;
}

void SetFormats(Options& options, std::string_view, std::string_view value) {
    for (std::size_t i = 0; i <= util::CountOf(value, ","); ++i)
        options.formats.push_back(platform::UpperAscii(util::Trim(util::GetCommaField(i, value))));
}

struct Setting {
    std::string_view name;
    void (*set)(Options& options, std::string_view name, std::string_view value);
};
constexpr Setting settings[] = {
    {"--match", [](Options& o, std::string_view, std::string_view value) { o.match = value; }},
    {"--to", SetFormats},
    {"--journal", [](Options& o, std::string_view, std::string_view value) { o.journal = value; }},
    {"--report", [](Options& o, std::string_view, std::string_view value) { o.report = value; }},
    {"--array",
     [](Options& o, std::string_view name, std::string_view value) {
         o.slices = static_cast<unsigned>(NumberIn(o, name, value, 1000));
     }},
    {"--sbatch", [](Options& o, std::string_view, std::string_view value) { o.sbatchOptions = value; }},
    {"--jobs",
     [](Options& o, std::string_view name, std::string_view value) {
         o.jobs = static_cast<unsigned>(NumberIn(o, name, value, 1000));
     }},
    {"--timeout", [](Options& o, std::string_view name,
                     std::string_view value) { o.timeout = NumberIn(o, name, value, 1e7); }},
    {"--pictures",
     [](Options& o, std::string_view name, std::string_view value) {
         o.pictures = static_cast<unsigned>(NumberIn(o, name, value, 100000));
     }},
};

const Setting* FindSetting(std::string_view name) {
    for (const Setting& setting : settings)
        if (setting.name == name) return &setting;
    return nullptr;
}

bool SetFlag(Options& options, std::string_view name) {
    for (const Flag& flag : flags)
        if (flag.name == name) options.*flag.member = true;
    for (const Flag& flag : flags)
        if (flag.name == name) return true;
    return false;
}

void CheckTogether(Options& options) {
    if (options.list.empty())
        options.error = "--batch needs a list of commands, a folder, or - for standard input";
    if (!options.slurm && (options.slices > 0 || !options.sbatchOptions.empty()))
        options.error = "--array and --sbatch go with --slurm";
    if (options.match.empty() != options.formats.empty()) options.error = "--match and --to go together";
}

}  // namespace

Options ParseOptions(std::span<const char* const> arguments) {
    Options options;
    for (std::size_t i = 0; i < arguments.size() && options.error.empty(); ++i) {
        std::string_view argument = arguments[i];
        std::string_view name = argument.substr(0, argument.find('='));
        if (const Setting* setting = FindSetting(name)) {
            bool isJoined = name.size() < argument.size();
            if (!isJoined && i + 1 == arguments.size())
                options.error = std::string(name) + " needs a value";
            else
                setting->set(options, name, isJoined ? argument.substr(name.size() + 1) : arguments[++i]);
        } else if (argument.starts_with('-') && argument != "-") {
            if (!SetFlag(options, argument)) options.error = "unknown option " + std::string(argument);
        } else if (!std::exchange(options.list, std::string(argument)).empty()) {
            options.error =
                "--batch takes one list; put quotes around a name with blanks and around patterns";
        }
    }
    if (options.error.empty() && !options.help) CheckTogether(options);
    return options;
}

constexpr std::string_view helpText =
    R"(vexlator --batch: many commands, several at a time, with a journal and a report

  vexlator --batch LIST                            the commands of a text file, one per line
  vexlator --batch -                               the commands of standard input
  vexlator --batch FOLDER --match '*.shp' --to VDF imports matching files, in all sub-folders
  vexlator --batch FOLDER --match '*.VDF' --to SHP,KML
                                                   exports the matching drawings

  --resume            goes on where an earlier run stopped: runs what is not done, what failed, and what has
                      changed since
  --jobs N            commands at a time; without it, one for each processor
  --slurm             runs the list as a job array of a Slurm cluster that shares its files, and waits for it
  --array N           at most so many tasks of the array; without it, 16
  --sbatch "OPTIONS"  options for sbatch, as in --sbatch "--partition=night --time=8:00:00"
  --timeout SECONDS   stops a command that takes longer; without it, none is stopped
  --dry-run           prints the commands that would run, and runs none
  --yes               answers every question with Yes; without it the answer is No
  --strict            counts a command with losses in its output as failed
  --json              prints the journal line of every finished command
  --journal FILE      without it, LIST.journal; in a folder, and for standard input, vexlator-batch.journal
  --report FILE       a page for a browser; without it, the journal's name with .html
  --no-report         writes none
  --pictures N        drawings that the report shows, where vdfpicture is installed; without it, 200

Blank lines of a list, and lines that begin with #, are skipped. Exit status: 0 all commands are done; 1 some are
not; 2 the list or an option is not usable; 3 there is no command; 130, 143 stopped by INT, TERM.
)";

}  // namespace vexlator::batch

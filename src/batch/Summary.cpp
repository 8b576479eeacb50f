// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Summary.h"

#include "ui/terminal/PlainText.h"
#include "util/Counted.h"
#include "util/Numbers.h"

namespace vexlator::batch {

namespace {

/// A row of the table: a label and a number; no row for 0.
std::string Row(std::string_view what, std::size_t count) {
    constexpr std::size_t nameWidth = 14, countWidth = 10;
    std::string number = util::GroupedCount(count), row = "  " + std::string(what);
    if (count == 0) return "";
    row.resize(std::max(row.size(), nameWidth + 2), ' ');
    row.append(countWidth - std::min(countWidth, number.size()), ' ');
    return row + number + "\n";
}

/// The line with the reason: a message, else the last line.
std::string ReasonOf(const Entry& entry) {
    for (const std::string& message : entry.messages)
        if (message.starts_with("message: ")) return message.substr(9);
    return entry.messages.empty() ? "" : entry.messages.back();
}

std::string NotDoneLine(const Entry& entry) {
    std::string line = "  " + std::string(NameOf(entry.status));
    if (entry.status == Status::Failed) line += ", exit status " + std::to_string(entry.exit);
    if (entry.status == Status::Crashed) line += " by signal " + std::to_string(entry.exit - 128);
    line += ": " + ui::OneLine(entry.command);
    std::string reason = ui::OneLine(ReasonOf(entry));
    return line + (reason.empty() ? "" : "\n    " + reason) + "\n";
}

}  // namespace

std::string SummaryText(const Totals& totals, double seconds, const std::vector<std::string>& commands,
                        Journal& journal) {
    constexpr std::size_t mostListed = 10;
    std::string text = util::Counted(totals.commands, "command") + ", " +
                       util::Counted(totals.Ended(), "of them", "of them");
    text += " run in " + DurationText(seconds) + "\n";
    text += Row("done", totals.Count(Status::Done)) + Row("done before", totals.doneBefore);
    for (Status status : {Status::Failed, Status::TimedOut, Status::Crashed, Status::Interrupted})
        text += Row(NameOf(status), totals.Count(status));
    text += Row("not run", totals.commands - totals.doneBefore - totals.Ended());
    text += Row("with losses", totals.withLosses);
    std::size_t listed = 0;
    for (const std::string& command : commands) {
        if (listed == std::min(mostListed, totals.NotDone())) break;
        std::optional<Entry> entry = journal.Last(command);
        if (!entry || entry->status == Status::Done || entry->status == Status::Begun) continue;
        text += NotDoneLine(*entry);
        ++listed;
    }
    return text;
}

}  // namespace vexlator::batch

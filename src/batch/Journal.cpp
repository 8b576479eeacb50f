// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Journal.h"

#include "platform/Paths.h"
#include "util/Files.h"
#include "util/JsonText.h"

namespace vexlator::batch {

namespace {

constexpr std::string_view beginning = "{\"batch\":";
constexpr std::string_view anew = "\"resumed\":false}";

std::string BeginningLine(std::string_view list, std::size_t commands, bool resume) {
    std::string line(beginning);
    util::AppendText(line, list);
    line += ",\"folder\":";
    util::AppendText(line, CurrentFolder());
    line += ",\"start\":\"" + TimeText(Now()) + "\",\"commands\":" + std::to_string(commands);
    return line + (resume ? ",\"resumed\":true}" : ",\"resumed\":false}");
}

}  // namespace

void Journal::Begin(std::string_view list, std::size_t commands, bool resume) {
    file_.Append(BeginningLine(list, commands, resume) + "\n");
}

std::size_t Journal::ReadEarlier() {
    std::size_t damaged = 0;
    map_.emplace(file_.Name());
    util::LineReader reader(map_->Text());
    while (!reader.AtEnd()) {
        std::uint64_t offset = reader.Position();
        std::string_view line = reader.ReadTextLine();
        if (line.starts_with(beginning)) {
            if (line.ends_with(anew)) last_.clear();
        } else if (std::optional<Entry> entry = Entry::FromJson(line)) {
            last_[entry->command] = {offset, line.size()};
        } else {
            ++damaged;
        }
    }
    return damaged;
}

void Journal::Append(const std::vector<Entry>& entries) {
    std::string lines;
    std::vector<Place> places;
    for (const Entry& entry : entries) {
        std::string line = entry.ToJson();
        places.push_back({file_.Size() + lines.size(), line.size()});
        lines += line + "\n";
    }
    file_.Append(lines);
    for (std::size_t i = 0; i < entries.size(); ++i) last_[entries[i].command] = places[i];
}

std::optional<Entry> Journal::Last(const std::string& command) {
    auto found = last_.find(command);
    if (found == last_.end()) return std::nullopt;
    const Place& place = found->second;
    if (!map_ || map_->Text().size() < place.offset + place.size) map_.emplace(file_.Name());
    return Entry::FromJson(map_->Text().substr(place.offset, place.size));
}

}  // namespace vexlator::batch

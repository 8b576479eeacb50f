// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Entry.h"

#include "platform/Paths.h"
#include "util/Files.h"
#include "util/JsonText.h"
#include "util/Numbers.h"
#include "util/Paths.h"

#include <array>
#include <chrono>
#include <simdjson.h>

namespace vexlator::batch {

namespace {

constexpr std::array<std::string_view, 7> statusNames = {"not run", "done",        "failed", "timed out",
                                                         "crashed", "interrupted", "begun"};

Status StatusNamed(std::string_view name) {
    for (std::size_t i = 0; i < statusNames.size(); ++i)
        if (statusNames[i] == name) return static_cast<Status>(i);
    return Status::NotRun;
}

/// Builds an object member by member.
class ObjectText {
public:
    std::string& Member(std::string_view name) {
        text_ += text_.empty() ? '{' : ',';
        util::AppendText(text_, name);
        text_ += ':';
        return text_;
    }
    void Text(std::string_view name, std::string_view value) { util::AppendText(Member(name), value); }
    void Number(std::string_view name, std::uint64_t value) {
        util::AppendNumber(Member(name), static_cast<std::int64_t>(value));
    }
    void Texts(std::string_view name, const std::vector<std::string>& values) {
        std::string& text = Member(name);
        char before = '[';
        for (const std::string& value : values) {
            text += std::exchange(before, ',');
            util::AppendText(text, value);
        }
        text += values.empty() ? "[]" : "]";
    }
    std::string Take() { return std::move(text_) + "}"; }

private:
    std::string text_;
};

void AppendSources(std::string& text, const std::vector<Source>& sources) {
    text += '[';
    for (const Source& source : sources) {
        ObjectText object;
        object.Text("path", source.path);
        object.Number("size", source.size);
        object.Text("time", source.time);
        text.append(&source == sources.data() ? "" : ",").append(object.Take());
    }
    text += ']';
}

using simdjson::dom::element;
using simdjson::dom::object;

std::string TextOf(const object& object, std::string_view name) {
    std::string_view text;
    return object[name].get(text) == simdjson::SUCCESS ? std::string(text) : "";
}

template <class Number>
Number NumberOf(const object& object, std::string_view name) {
    Number number{};
    return object[name].get(number) == simdjson::SUCCESS ? number : Number{};
}

std::vector<std::string> TextsOf(const object& object, std::string_view name) {
    std::vector<std::string> texts;
    simdjson::dom::array array;
    if (object[name].get(array) != simdjson::SUCCESS) return texts;
    for (element item : array)
        if (std::string_view text; item.get(text) == simdjson::SUCCESS) texts.emplace_back(text);
    return texts;
}

std::vector<Source> SourcesOf(const object& object) {
    std::vector<Source> sources;
    simdjson::dom::array array;
    if (object["sources"].get(array) != simdjson::SUCCESS) return sources;
    for (element item : array) {
        simdjson::dom::object source;
        if (item.get(source) != simdjson::SUCCESS) continue;
        sources.push_back(
            {TextOf(source, "path"), NumberOf<std::uint64_t>(source, "size"), TextOf(source, "time")});
    }
    return sources;
}

}  // namespace

std::string_view NameOf(Status status) {
    return statusNames[static_cast<std::size_t>(status)];
}

void Entry::TakeOutcome(const config::Outcome& outcome, const std::string& lost) {
    layers = outcome.layers;
    features = outcome.features;
    if (!outcome.target.empty()) outputs = {platform::NativePath(outcome.target)};
    losses = lost;
}

std::string Entry::ToJson() const {
    ObjectText text;
    text.Text("command", command);
    text.Text("folder", folder);
    text.Text("start", start);
    text.Text("end", end);
    text.Member("seconds") += util::FormatFixed(seconds, 3);
    text.Text("status", NameOf(status));
    text.Number("exit", static_cast<std::uint64_t>(exit));
    text.Number("layers", layers);
    text.Number("features", features);
    text.Text("target", outputs.empty() ? "" : outputs.front());
    text.Texts("outputs", outputs);
    text.Text("losses", losses);
    text.Texts("messages", messages);
    AppendSources(text.Member("sources"), sources);
    return text.Take();
}

std::optional<Entry> Entry::FromJson(std::string_view line) {
    simdjson::dom::parser parser;
    object members;
    if (parser.parse(line.data(), line.size()).get(members) != simdjson::SUCCESS) return std::nullopt;
    Entry entry;
    entry.command = TextOf(members, "command");
    entry.folder = TextOf(members, "folder");
    entry.start = TextOf(members, "start");
    entry.end = TextOf(members, "end");
    entry.seconds = NumberOf<double>(members, "seconds");
    entry.status = StatusNamed(TextOf(members, "status"));
    entry.exit = static_cast<int>(NumberOf<std::int64_t>(members, "exit"));
    entry.layers = NumberOf<std::uint64_t>(members, "layers");
    entry.features = NumberOf<std::uint64_t>(members, "features");
    entry.outputs = TextsOf(members, "outputs");
    entry.losses = TextOf(members, "losses");
    entry.messages = TextsOf(members, "messages");
    entry.sources = SourcesOf(members);
    return entry;
}

std::vector<std::string> MessagesOf(std::string_view output, const std::string& losses) {
    std::vector<std::string> messages;
    util::LineReader reader(output);
    while (!reader.AtEnd()) {
        std::string_view line = reader.ReadTextLine();
        if (line.starts_with("  ") && !messages.empty())
            messages.back().append("\n").append(line.substr(2));
        else if (!line.empty() && line != losses)
            messages.emplace_back(line);
    }
    return messages;
}

std::string TimeText(platform::SystemTime time, int digits) {
    using namespace std::chrono;
    auto day = floor<days>(time);
    year_month_day date(day);
    hh_mm_ss clock(floor<nanoseconds>(time - day));
    auto two = [](auto value) { return util::ZeroPadded(static_cast<std::int64_t>(value), 2); };
    std::string fraction =
        util::ZeroPadded(clock.subseconds().count(), 9).substr(0, static_cast<std::size_t>(digits));
    return std::to_string(static_cast<int>(date.year())) + "-" + two(static_cast<unsigned>(date.month())) +
           "-" + two(static_cast<unsigned>(date.day())) + "T" + two(clock.hours().count()) + ":" +
           two(clock.minutes().count()) + ":" + two(clock.seconds().count()) + "." + fraction + "Z";
}

platform::SystemTime Now() {
    return std::chrono::system_clock::now();
}

std::string CurrentFolder() {
    return platform::NativePath(util::FolderOf(platform::AbsolutePath("file")));
}

}  // namespace vexlator::batch

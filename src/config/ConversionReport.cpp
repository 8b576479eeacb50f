// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/ConversionReport.h"

#include "util/Files.h"
#include "util/Numbers.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace vexlator::config {

namespace {

constexpr std::pair<char, char> escapes[] = {{'\\', '\\'}, {'\t', 't'}, {'\n', 'n'}, {'\r', 'r'}};

std::string Escaped(std::string_view text) {
    std::string result;
    for (char c : text) {
        auto found = std::ranges::find(escapes, c, &std::pair<char, char>::first);
        if (found == std::end(escapes))
            result += c;
        else
            result.append("\\").append(1, found->second);
    }
    return result;
}

std::string Unescaped(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size()) {
            auto found = std::ranges::find(escapes, text[++i], &std::pair<char, char>::second);
            if (found != std::end(escapes)) result += found->first;
        } else {
            result += text[i];
        }
    }
    return result;
}

void AddLine(std::string& text, const std::vector<std::string>& fields) {
    for (std::size_t i = 0; i < fields.size(); ++i) text.append(i > 0 ? "\t" : "").append(Escaped(fields[i]));
    text += '\n';
}

std::vector<std::string> FieldsOf(std::string_view line) {
    std::vector<std::string> fields;
    for (;;) {
        std::size_t tab = line.find('\t');
        fields.push_back(Unescaped(line.substr(0, tab)));
        if (tab == std::string_view::npos) return fields;
        line.remove_prefix(tab + 1);
    }
}

void TakeOutcome(const std::vector<std::string>& fields, Outcome& outcome) {
    if (fields.size() < 5) return;
    outcome.status = static_cast<Outcome::Status>(std::clamp<std::int64_t>(util::IntegerOf(fields[1]), 0, 2));
    outcome.layers = static_cast<std::uint64_t>(util::IntegerOf(fields[2]));
    outcome.features = static_cast<std::uint64_t>(util::IntegerOf(fields[3]));
    outcome.target = fields[4];
}

ConversionReport::Template TemplateOf(const std::vector<std::string>& fields) {
    ConversionReport::Template result{.code = fields[1]};
    for (std::size_t i = 2; i + 1 < fields.size(); i += 2) {
        result.names.push_back(fields[i]);
        result.widths.push_back(static_cast<int>(util::IntegerOf(fields[i + 1])));
    }
    return result;
}

void TakeLine(const std::vector<std::string>& fields, ConversionReport& report) {
    constexpr std::int64_t lastKind = static_cast<std::int64_t>(LossReport::Kind::NoRow);
    const std::string& word = fields.front();
    if (word == "outcome") TakeOutcome(fields, report.outcome);
    if (fields.size() < 2) return;
    if (word == "message" || word == "line") report.lines.push_back({word == "message", fields[1]});
    if (word == "error") report.error = fields[1];
    if (word == "template") report.templates.push_back(TemplateOf(fields));
    if (word == "lost" && fields.size() == 5)
        report.Lose(
            static_cast<LossReport::Kind>(std::clamp<std::int64_t>(util::IntegerOf(fields[1]), 0, lastKind)),
            fields[2], fields[3], static_cast<std::uint64_t>(util::IntegerOf(fields[4])));
}

}  // namespace

void ConversionReport::Lose(LossReport::Kind kind, std::string_view layer, std::string_view field,
                            std::uint64_t values) {
    if (values > 0) losses.push_back({kind, std::string(layer), std::string(field), values});
}

void ConversionReport::AddLossesTo(LossReport& report) const {
    for (const Loss& loss : losses) report.Count(loss.kind, loss.layer, loss.field, loss.values);
}

std::string ConversionReport::Text() const {
    std::string text;
    for (const Line& line : lines) AddLine(text, {line.isMessage ? "message" : "line", line.text});
    for (const Template& each : templates) {
        std::vector<std::string> fields{"template", each.code};
        for (std::size_t i = 0; i < each.names.size(); ++i)
            fields.insert(fields.end(), {each.names[i], std::to_string(each.widths[i])});
        AddLine(text, fields);
    }
    for (const Loss& loss : losses)
        AddLine(text, {"lost", std::to_string(static_cast<int>(loss.kind)), loss.layer, loss.field,
                       std::to_string(loss.values)});
    if (!error.empty()) AddLine(text, {"error", error});
    AddLine(text, {"outcome", std::to_string(static_cast<int>(outcome.status)),
                   std::to_string(outcome.layers), std::to_string(outcome.features), outcome.target});
    return text;
}

ConversionReport ReadConversionReport(std::string_view text) {
    ConversionReport report;
    for (util::LineReader lines(text); !lines.AtEnd();) TakeLine(FieldsOf(lines.ReadTextLine()), report);
    return report;
}

}  // namespace vexlator::config

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/LossReport.h"

#include "util/ShortList.h"

#include <array>

namespace vexlator::config {

namespace {

constexpr std::array<std::pair<LossReport::Kind, std::string_view>, 7> titles = {{
    {LossReport::Kind::LeftOut, "entities left out: "},
    {LossReport::Kind::Cut, "values cut: "},
    {LossReport::Kind::NoColumn, "values without a column: "},
    {LossReport::Kind::Broken, "values that break their row: "},
    {LossReport::Kind::NotNumber, "texts in columns of numbers: "},
    {LossReport::Kind::Replaced, "characters replaced: "},
    {LossReport::Kind::NoRow, "features without their row of values: "},
}};

}  // namespace

void LossReport::Count(Kind kind, std::string_view layer, std::string_view field, std::uint64_t values) {
    if (values == 0) return;
    std::string name(layer);
    if (!field.empty()) name.append(".").append(field);
    counts_[{kind, std::move(name)}] += values;
}

void LossReport::Add(const LossReport& more) {
    for (const auto& [key, count] : more.counts_) counts_[key] += count;
}

std::string LossReport::Line() const {
    constexpr std::size_t mostFields = 20;  // names of each kind; the line is for people
    std::string line;
    for (const auto& [kind, title] : titles) {
        util::ShortList fields(mostFields);
        for (const auto& [key, count] : counts_)
            if (key.first == kind)
                fields.Add(util::ShortList::Shortened(key.second) + " " + std::to_string(count));
        if (!fields.Empty()) line.append(line.empty() ? "" : "; ").append(title).append(fields.Text());
    }
    return line;
}

}  // namespace vexlator::config

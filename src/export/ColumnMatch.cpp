// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/ColumnMatch.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::exporter {

namespace {

constexpr std::size_t noColumn = static_cast<std::size_t>(-1);
constexpr std::string_view droppedName = "NULL";  ///< fields with that name get no column

std::string KeyOf(std::string_view name) {
    return platform::LowerAscii(util::Trim(drawing::AtpNameOf(std::string(name))));
}

}  // namespace

std::string ColumnName(std::string_view name, std::size_t position) {
    if (util::Trim(name).empty()) return "FIELD" + std::to_string(position + 1);
    std::string plain(name);
    std::ranges::replace_if(
        plain, [](unsigned char c) { return c < ' ' || c == '\x7F'; }, '_');
    return plain;
}

std::string ShownName(std::string_view name) {
    return name.empty() ? "(no name)" : util::ShortList::Shortened(name);
}

util::ShortList OtherNames() {
    constexpr std::size_t mostNamed = 5;
    return util::ShortList(mostNamed);
}

void ReportOtherNames(config::Run& run, std::string_view layer, const util::ShortList& places) {
    if (places.Empty()) return;
    run.Ui().Report(util::ShortList::Shortened(layer) +
                    ": attributes whose names differ from their columns' names: " + places.Text() +
                    (run.Settings().MatchNames ? "" : "; [GENERICOUT] MATCHNAMES=1 matches them by name"));
}

std::vector<ColumnNames> NamesForAttributes(const std::vector<std::string>& columns) {
    std::vector<ColumnNames> names;
    for (const std::string& column : columns) names.push_back({column});
    return names;
}

ColumnMatch::ColumnMatch(config::Run& run, std::string layer, std::vector<ColumnNames> columns)
    : ColumnMatch(run, std::move(layer), std::move(columns), run.Settings().MatchNames) {}

ColumnMatch ColumnMatch::ByName(config::Run& run, std::string layer, std::vector<ColumnNames> columns) {
    return {run, std::move(layer), std::move(columns), true};
}

ColumnMatch::ColumnMatch(config::Run& run, std::string layer, std::vector<ColumnNames> columns, bool byName)
    : run_(run),
      layer_(std::move(layer)),
      columns_(std::move(columns)),
      byName_(byName),
      others_(OtherNames()) {
    for (std::size_t column = 0; column < columns_.size(); ++column)
        for (const std::string& name : columns_[column]) {
            std::vector<std::size_t>& named = named_[KeyOf(name)];
            if (named.empty() || named.back() != column) named.push_back(column);
        }
}

std::span<const std::string_view> ColumnMatch::Row(const drawing::EntityView& entity) {
    const Places& places = PlacesFor(entity);
    drawing::ValueCursor values = entity.xproperties().values();
    row_.assign(byName_ ? columns_.size() : places.size(), {});
    for (const Place& place : places) {
        std::string_view value = values.Next();
        if (place.column < row_.size()) row_[place.column] = value;
        if (place.lost && !value.empty()) ++*place.lost;
    }
    return row_;
}

const ColumnMatch::Places& ColumnMatch::PlacesFor(const drawing::EntityView& entity) {
    drawing::AttributeSet set = entity.attributeSet();
    if (last_ && set == lastSet_) return *last_;
    auto [known, isNew] = known_.try_emplace(set);
    if (isNew) known->second = Match(entity.xproperties());
    lastSet_ = set;
    last_ = &known->second;
    return *last_;
}

ColumnMatch::Places ColumnMatch::Match(const drawing::XPropertiesView& attributes) {
    Places places;
    std::vector<bool> taken(columns_.size());
    for (std::size_t i = 0, count = attributes.count(); i < count; ++i) {
        std::string_view name = attributes.name(i);
        std::size_t column = byName_ ? FreeColumn(name, taken) : i;
        bool dropped = byName_ && name == droppedName && column == noColumn;
        if (!dropped) NoteOther(name, column);
        bool lost = column >= columns_.size() && !dropped;
        places.push_back({column, lost ? &lost_[std::string(name)] : nullptr});
    }
    return places;
}

/// The columns that can be the target of such an attribute.
std::span<const std::size_t> ColumnMatch::Named(std::string_view name) const {
    std::string key = KeyOf(name);
    auto found = named_.find(key);
    if (found == named_.end())
        found = named_.find(std::string(platform::FirstCharacters(key, drawing::importedNameLength)));
    if (found == named_.end()) return {};
    return found->second;
}

/// A column with its own name goes first.
std::size_t ColumnMatch::FreeColumn(std::string_view name, std::vector<bool>& taken) const {
    std::span<const std::size_t> named = Named(name);
    auto isFree = [&](std::size_t column) { return !taken[column]; };
    auto isItsOwn = [&](std::size_t column) { return isFree(column) && columns_[column].front() == name; };
    auto found = std::ranges::find_if(named, isItsOwn);
    if (found == named.end()) found = std::ranges::find_if(named, isFree);
    if (found == named.end()) return noColumn;
    taken[*found] = true;
    return *found;
}

void ColumnMatch::NoteOther(std::string_view name, std::size_t column) {
    if (column >= columns_.size())
        others_.Add(ShownName(name) + (byName_ ? " left out" : " in no column"));
    else if (!byName_ && std::ranges::find(Named(name), column) == Named(name).end())
        others_.Add(ShownName(name) + " in " + ShownName(columns_[column].front()));
}

void ColumnMatch::Report() {
    ReportOtherNames(run_, layer_, others_);
    for (const auto& [name, count] : lost_)
        run_.Losses().Count(config::LossReport::Kind::NoColumn, layer_, name, count);
}

}  // namespace vexlator::exporter

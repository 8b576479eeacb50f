// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "mapbook/BookPlan.h"

#include "config/Ini.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <string>

namespace vexlator::mapbook {

namespace {

/// Calls `take(key, value)` for all values but the frames, so that writing and reading cannot differ.
template <typename Plan, typename Take>
void ForEachValue(Plan& plan, Take take) {
    take("Drawing", plan.drawing);
    take("SymbolsFolder", plan.symbolsFolder);
    take("Package", plan.package);
    take("MapProgram", plan.mapProgram);
    take("MapRequest", plan.mapRequest);
    take("Folder", plan.folder);
    take("Job", plan.job);
    take("Images", plan.images);
    take("DrawsPdf", plan.drawsPdf);
    take("ListsPages", plan.listsPages);
    take("FramesLayer", plan.framesLayer);
    take("Paper", plan.paper);
    take("Grid", plan.grid);
    take("Least", plan.least);
    take("Most", plan.most);
    take("Report", plan.hasReport);
    take("Logo1", plan.logos.first);
    take("Logo2", plan.logos.second);
    take("System", plan.system);
    take("Date", plan.date);
    take("Project", plan.titles.project);
    take("Description", plan.titles.description);
    take("JobName", plan.titles.name);
    take("Created", plan.titles.created);
    take("Device", plan.titles.device);
    take("KeyID", plan.titles.keyId);
}

std::string ValueText(const std::string& value) {
    // A line end would end the value.
    return util::ReplaceAll(util::ReplaceAll(value, "\r", " "), "\n", " ");
}
std::string ValueText(bool value) {
    return value ? "1" : "0";
}
std::string ValueText(int value) {
    return std::to_string(value);
}

void TakeValue(std::string_view text, std::string& value) {
    value = text;
}
void TakeValue(std::string_view text, bool& value) {
    value = text == "1";
}
void TakeValue(std::string_view text, int& value) {
    value = static_cast<int>(util::IntegerOf(text));
}

std::string SectionOf(std::size_t frame) {
    return "FRAME" + std::to_string(frame + 1);
}

}  // namespace

std::string BookPlan::PathOf(std::string_view extension) const {
    return util::JoinPath(folder, job + "." + std::string(extension));
}

std::string BookPlan::ImagePath(std::string_view page) const {
    return util::JoinPath(folder, job + "(" + std::string(page) + ").JPG");
}

std::string BookPlanText(const BookPlan& plan) {
    std::string text;
    config::AppendIniSection(text, "BOOK");
    ForEachValue(plan, [&](std::string_view key, const auto& value) {
        config::AppendIniValue(text, key, ValueText(value));
    });
    for (std::size_t i = 0; i < plan.frames.size(); ++i) {
        const PageFrame& frame = plan.frames[i];
        config::AppendIniSection(text, SectionOf(i));
        config::AppendIniValue(text, "Number", std::to_string(frame.number));
        config::AppendIniValue(text, "Name", frame.name);
        std::string ground;
        for (double side : {frame.ground.minX, frame.ground.minY, frame.ground.maxX, frame.ground.maxY})
            ground += (ground.empty() ? "" : ",") + util::FormatShortest(side);
        config::AppendIniValue(text, "Ground", ground);
    }
    return text;
}

BookPlan ReadBookPlan(std::string_view text) {
    config::IniText ini(text);
    BookPlan plan;
    ForEachValue(plan, [&](std::string_view key, auto& value) { TakeValue(ini.Value("BOOK", key), value); });
    for (;;) {
        std::string section = SectionOf(plan.frames.size());
        std::string_view name = ini.Value(section, "Name"), ground = ini.Value(section, "Ground");
        if (name.empty()) return plan;
        plan.frames.push_back({static_cast<int>(util::IntegerOf(ini.Value(section, "Number"))),
                               std::string(name),
                               {util::GetCommaNumber(0, ground), util::GetCommaNumber(1, ground),
                                util::GetCommaNumber(2, ground), util::GetCommaNumber(3, ground)}});
    }
}

}  // namespace vexlator::mapbook

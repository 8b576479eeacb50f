// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/Converter.h"

#include "config/OutsideProgram.h"
#include "platform/Files.h"
#include "platform/ScratchFolder.h"
#include "util/Files.h"

#include <stdexcept>
#include <utility>

namespace vexlator::config {

namespace {

/// What the converter program reads of gv.ini. This run may have values of its own.
constexpr std::pair<const char*, const char*> readKeys[] = {
    {"GENERAL", "ATPDirectory"}, {"GENERAL", "SymbolsDirectory"}, {"GENERAL", "TempDirectory"},
    {"GPS", "TRANSFORMATION"},   {"MID", "MIDMIFHEADER"},         {"DWG", "ROTATE"},
    {"GENERAL", "FalseOrigin"},  {"TAB", "SMALLPOLYSASPOINTS"},   {"GENERAL", "VEXLATORDEBUG"}};

std::vector<std::string> CommonArguments(const Run& run, const std::string& reportPath) {
    std::vector<std::string> arguments{"--report", reportPath};
    for (const auto& [section, key] : readKeys)
        arguments.insert(
            arguments.end(),
            {"--set", std::string(section).append(".").append(key).append("=" + run.ReadIni(section, key))});
    return arguments;
}

}  // namespace

void ShowReport(Run& run, const ConversionReport& report) {
    for (const ConversionReport::Line& line : report.lines)
        line.isMessage ? run.Ui().ShowMessage(line.text) : run.Ui().Report(line.text);
    if (!report.error.empty()) throw std::runtime_error(report.error);
    report.AddLossesTo(run.Losses());
}

ConversionReport RunConverter(Run& run, ui::FormView& view, std::vector<std::string> arguments) {
    platform::ScratchFolder scratch;
    const std::string path = scratch.Path() + "/report";
    std::vector<std::string> all = CommonArguments(run, path);
    all.insert(all.end(), arguments.begin(), arguments.end());
    OutsideProgram program(run, FindSuiteProgram(run, converterProgram), std::move(all));
    bool hasReported =
        program.WaitForEnd([&view] { view.Progress(0, 0); }, [&] { return util::FileSize(path) > 0; });
    if (!hasReported) throw std::runtime_error(program.Problem());
    ConversionReport report = ReadConversionReport(platform::MappedFile(path).Text());
    ShowReport(run, report);
    return report;
}

}  // namespace vexlator::config

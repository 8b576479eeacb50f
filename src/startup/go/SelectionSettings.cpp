// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/SelectionSettings.h"

#include "config/FormState.h"
#include "import/SourceFiles.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "startup/go/SourceKinds.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <array>

namespace vexlator::startup {

namespace {

using Keys = config::Keys<SelectionSettings>;
using Settings = SelectionSettings;

constexpr config::KeyOf<SelectionSettings> keys[] = {
    Keys::Text("OPTION", "txtSource", &Settings::txtSource,
               "source of a GO command: a file, a pattern, or files separated by |", "GO converts nothing"),
    Keys::Text("OPTION", "txttarget", &Settings::txttarget,
               "path of the package (.GRP) that a GO command makes", "GO converts nothing"),
    Keys::Text("OPTION", "txtStyling", &Settings::txtStyling, "background styling file (.BSF) of the package",
               "none"),
    Keys::Flag("OPTION", "chkAll", &Settings::chkAll,
               "every file in the source's folder that has its extension is converted, each to a package of "
               "its own"),
    Keys::Flag("OPTION", "chkClear", &Settings::chkClear,
               "the target's folder is cleared of packages before"),
    Keys::Flag("OPTION", "chkExplode", &Settings::chkExplode,
               "symbols are taken apart; GO writes the opposite to [GRP] DONTEXPLODE"),
    Keys::Flag("OPTION", "chkApplyMMCOU", &Settings::chkApplyMMCOU,
               "GML sources are change-only updates of what the target holds"),
    Keys::Flag("OPTION", "chkInteractive", &Settings::chkInteractive,
               "programs that GO starts show their windows"),
    Keys::Flag("OPTION", "chkKeepOpen", &Settings::chkKeepOpen,
               "the selection window stays open after a conversion"),
};

/// The controls as their state is saved.
std::vector<config::FormControl> Controls(const SelectionSettings& choices) {
    std::vector<config::FormControl> controls;
    for (const auto& key : keys) {
        config::FormControl control{.name = std::string(key.name)};
        if (auto flag = std::get_if<bool Settings::*>(&key.member))
            control.number = choices.*(*flag) ? 1 : 0;
        else
            control.text = choices.*std::get<std::string Settings::*>(key.member);
        controls.push_back(std::move(control));
    }
    return controls;
}

std::string CutToWholePaths(const std::string& list) {
    return list.size() <= longestIniValue ? list : list.substr(0, list.rfind('|', longestIniValue));
}

ShownCommand::Problem ProblemOf(const std::string& text) {
    using Problem = ShownCommand::Problem;
    if (text.find_first_of(",=\r\n") != std::string::npos) return Problem::Separator;
    if (util::Trim(text) != text) return Problem::OuterBlank;
    return text.size() > longestIniValue ? Problem::TooLong : Problem::None;
}

/// In quotes as shells take them.
std::string Quoted(const std::string& text) {
    if (text.find_first_of("$`\"\\!") == std::string::npos) return '"' + text + '"';
    return "'" + util::ReplaceAll(text, "'", "'\\''") + "'";
}

}  // namespace

std::vector<std::string> SelectionSettings::ListedFiles() const {
    std::size_t bar = txtSource.find('|');
    if (bar == std::string::npos) return {};
    return importer::SourceFiles(platform::AbsolutePath(txtSource.substr(0, bar)), txtSource.substr(bar));
}

SelectionSettings RestoreSelection(const config::Run& run) {
    SelectionSettings choices;
    std::vector<config::FormControl> controls = Controls(choices);
    config::RestoreFormState(run, controls);
    auto control = controls.begin();
    for (const auto& key : keys) {
        if (auto flag = std::get_if<bool Settings::*>(&key.member))
            choices.*(*flag) = control->number == 1;
        else
            choices.*std::get<std::string Settings::*>(key.member) = control->text;
        ++control;
    }
    return choices;
}

void Preset(SelectionSettings& choices, std::span<const GoOption> options) {
    for (const GoOption& option : options)
        for (const auto& key : keys) {
            if (!platform::SameNoCase(key.name, option.key)) continue;
            if (auto flag = std::get_if<bool Settings::*>(&key.member))
                choices.*(*flag) = util::IntegerOf(option.value) == 1;
            else
                choices.*std::get<std::string Settings::*>(key.member) = option.value;
        }
}

SelectionSettings WithWholePaths(SelectionSettings choices) {
    std::string list;
    for (const std::string& file : choices.ListedFiles())
        list += (list.empty() ? "" : "|") + platform::AbsolutePath(file);
    choices.txtSource = list.empty() ? platform::AbsolutePath(choices.txtSource) : list;
    choices.txtStyling = platform::AbsolutePath(choices.txtStyling);
    std::string target = platform::AbsolutePath(choices.txttarget);
    bool isFolder = !platform::SameNoCase(util::ExtensionOf(target), "GRP");
    if (isFolder) target.erase(target.find_last_not_of("\\/") + 1);
    if (isFolder && !target.empty()) target = util::JoinPath(target, util::FileNameOf(target) + ".GRP");
    choices.txttarget = target;
    return choices;
}

void SaveSelection(config::Run& run, const SelectionSettings& choices) {
    SelectionSettings saved = choices;
    saved.txtSource = CutToWholePaths(choices.txtSource);
    config::SaveFormState(run, Controls(saved));
    run.WriteIni("GRP", "DONTEXPLODE", choices.chkExplode ? "0" : "1");
}

void ResetToJPGlist(SelectionSettings& choices, std::string_view imagePath) {
    choices.txtSource = imagePath;
    choices.chkAll = true;
    std::string folder = util::FolderOf(imagePath);
    choices.txttarget = folder + "\\" + util::ReplaceAll(util::FileNameOf(folder), "_files", "") + ".GRP";
}

std::string TargetFor(std::string_view source, std::string_view target) {
    std::string base = util::BaseNameOf(source);
    if (target.empty()) return util::JoinPath(util::JoinPath(util::FolderOf(source), base), base + ".GRP");
    const SourceKind& kind = KindOf(source);
    if (kind.treatment == Treatment::Images && kind.code != "NTF") return std::string(target);
    return util::JoinPath(util::FolderOf(target), base + ".GRP");
}

ShownCommand ShowAsCommand(const SelectionSettings& choices) {
    std::string text;
    for (const config::FormControl& control : Controls(choices)) {
        if (control.name == "chkKeepOpen") continue;  // of the window alone
        if (auto problem = ProblemOf(control.text); problem != ShownCommand::Problem::None)
            return {"", problem, control.name};
        text += (text.empty() ? "GO " : ",") + control.name + "=";
        text += control.name.starts_with("chk") ? std::to_string(control.number) : control.text;
    }
    return {"vexlator " + Quoted(text)};
}

config::KeyList SelectionKeys() {
    return config::ListOf<SelectionSettings>(keys);
}

}  // namespace vexlator::startup

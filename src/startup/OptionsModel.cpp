// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/OptionsModel.h"

#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/Keys.h"
#include "util/Text.h"

#include <algorithm>
#include <stdexcept>

namespace vexlator::startup {

namespace {

struct ControlKey {
    std::string_view control, section, key, fallback;
};
constexpr ControlKey controlKeys[] = {
    {"txtGridInterval", "GRP", "GRIDSIZE", "1000"},
    {"txtEntityMax", "GRP", "MAXENTITIES", "100000"},
    {"chkLLin", "SHPin", "LL", "0"},
    {"txtCoordSystem", "GPS", "Transformation", ""},
    {"chkFt", "GRPin", "ft", "0"},
    {"txtPDFlayers", "GRP", "PDFlayers", ""},
    {"txtMMBackup", "GRP", "MMBACKUP", "c:\\MMbackup"},
    {"chkMMcou", "GRP", "MMMAINTAINCOU", "0"},
    {"chkCopyCoordSys", "GPS", "CopyCoordSys", "0"},
    {"chkCreateLocalDXF", "GRP", "CREATEDXF", "0"},
    {"chkGenerateFullPolys", "GRP", "GENFULLPOLYS", "0"},
};

const ControlKey& KeyOfControl(std::string_view control) {
    const auto* found = std::ranges::find(controlKeys, control, &ControlKey::control);
    if (found == std::end(controlKeys)) throw std::logic_error("no option " + std::string(control));
    return *found;
}

std::string WithoutFolder(const config::Key& key, const std::string& folder) {
    return util::ReplaceAll(key.initial, "@FOLDER@", folder);
}

}  // namespace

OptionsModel::OptionsModel(config::Installation& installation)
    : installation_(installation), keys_(AllKeys()) {
    Read();
}

void OptionsModel::Read() {
    std::string path = installation_.IniFile("");
    text_ = platform::FileExists(path) ? platform::ReadWholeFile(path) : "";
    stored_.emplace(text_);
}

const OptionsModel::Change* OptionsModel::ChangeOf(std::string_view section, std::string_view key) const {
    auto found = std::ranges::find_if(changes_, [&](const Change& change) {
        return platform::SameNoCase(change.section, section) && platform::SameNoCase(change.key, key);
    });
    return found == changes_.end() ? nullptr : &*found;
}

std::string OptionsModel::Stored(std::string_view section, std::string_view key) const {
    return std::string(stored_->Value(section, key));
}

std::string OptionsModel::Value(std::string_view section, std::string_view key) const {
    const Change* change = ChangeOf(section, key);
    return change ? change->value : Stored(section, key);
}

void OptionsModel::Set(std::string_view section, std::string_view key, std::string_view value) {
    std::erase_if(changes_, [&](const Change& change) {
        return platform::SameNoCase(change.section, section) && platform::SameNoCase(change.key, key);
    });
    if (Stored(section, key) != value)
        changes_.push_back({std::string(section), std::string(key), std::string(value)});
}

bool OptionsModel::IsChanged(std::string_view section, std::string_view key) const {
    return ChangeOf(section, key) != nullptr;
}

bool OptionsModel::DiffersFromDefault(const config::Key& key) const {
    std::string value = Value(key.section, key.name);
    if (value.empty()) return false;
    if (key.type == config::Key::Type::Flag) return config::IsOn(key, value);
    if (key.type == config::Key::Type::Switch) return !config::IsOn(key, value);
    std::string folder = platform::NativePath(installation_.Settings().ProgramFolder);
    return value != key.fallback && value != WithoutFolder(key, folder);
}

std::string OptionsModel::TextOf(std::string_view control) const {
    const ControlKey& of = KeyOfControl(control);
    std::string value = Value(of.section, of.key);
    return value.empty() ? std::string(of.fallback) : value;
}

void OptionsModel::SetText(std::string_view control, std::string_view text) {
    const ControlKey& of = KeyOfControl(control);
    // A default that is only displayed is not a change.
    std::string stored = Stored(of.section, of.key);
    Set(of.section, of.key, stored.empty() && text == of.fallback ? stored : text);
}

bool OptionsModel::IsOn(std::string_view control) const {
    return TextOf(control) == "1";
}

void OptionsModel::SetOn(std::string_view control, bool isOn) {
    const ControlKey& of = KeyOfControl(control);
    std::string stored = Stored(of.section, of.key);
    Set(of.section, of.key, (stored == "1") == isOn ? stored : isOn ? "1" : "0");
}

std::string OptionsModel::PdfLayerLines() const {
    return util::ReplaceAll(TextOf("txtPDFlayers"), "\\", "\n");
}

void OptionsModel::SetPdfLayerLines(std::string_view lines) {
    std::string joined = util::ReplaceAll(util::ReplaceAll(lines, "\r", ""), "\n", "\\");
    while (joined.ends_with('\\')) joined.pop_back();
    SetText("txtPDFlayers", joined);
}

std::string OptionsModel::EsriVersion() const {
    std::string value = Value("ESRI", "ARC10");
    return value == "1" || value == "2" || value == "5" ? value : "0";
}

void OptionsModel::SetEsriVersion(std::string_view version) {
    std::string stored = Stored("ESRI", "ARC10");
    Set("ESRI", "ARC10", stored.empty() && version == "0" ? std::string_view(stored) : version);
}

std::vector<Finding> OptionsModel::Findings() const {
    std::string text = text_;
    for (const Change& change : changes_)
        text = config::WithIniValue(text, change.section, change.key, change.value);
    std::vector<Finding> findings = FindingsOf(text, keys_);
    for (const config::Key& key : keys_) {
        if (key.type != config::Key::Type::Folder) continue;
        std::string value = Value(key.section, key.name), problem = key.Problem(value);
        std::string name = "[" + std::string(key.section) + "] " + std::string(key.name);
        if (!problem.empty())
            findings.push_back({name + "=" + value + ": " + problem, "Choose an existing folder, or make it",
                                std::string(key.section), std::string(key.name)});
    }
    return findings;
}

void OptionsModel::Save() {
    while (!changes_.empty()) {
        const Change& change = changes_.front();
        installation_.WriteIni(change.section, change.key, change.value);
        changes_.erase(changes_.begin());
    }
    Read();
}

}  // namespace vexlator::startup

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/FormState.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <cstdint>
#include <optional>

namespace vexlator::config {

namespace {

enum class Kind { CheckBox, TextBox, ComboBox, OptionButton };

/// The kind of a control, and where its state is stored.
struct StoredState {
    Kind kind;
    std::string section, key;
};

std::optional<StoredState> StateOf(const std::string& name) {
    if (name.starts_with("chk")) return StoredState{Kind::CheckBox, "OPTION", name};
    if (name.starts_with("txt")) return StoredState{Kind::TextBox, "OPTION", name};
    if (name.starts_with("cbo")) return StoredState{Kind::ComboBox, "OPTION", name};
    if (name.starts_with("opt")) return StoredState{Kind::OptionButton, "OPTION", name};
    if (!name.starts_with("gtxt")) return std::nullopt;
    std::string_view place = std::string_view(name).substr(4);
    return StoredState{Kind::TextBox, std::string(util::GetField(0, place, "_")),
                       std::string(util::GetField(1, place, "_"))};
}

std::string ValueOf(const FormControl& control, Kind kind) {
    switch (kind) {
        case Kind::TextBox:
            return control.text;
        case Kind::OptionButton:
            return control.selected ? "True" : "False";
        default:
            return std::to_string(control.number);
    }
}

void SetNumber(FormControl& control, std::int64_t number, std::int64_t least, std::int64_t most) {
    if (number >= least && number <= most) control.number = static_cast<int>(number);
}

void SetValue(FormControl& control, Kind kind, const std::string& value) {
    switch (kind) {
        case Kind::TextBox:
            control.text = value;
            break;
        case Kind::OptionButton:
            control.selected = value == "True";
            break;
        case Kind::CheckBox:
            SetNumber(control, util::IntegerOf(value), 0, 2);
            break;
        case Kind::ComboBox:
            SetNumber(control, util::IntegerOf(value), -1, control.listSize - 1);
            break;
    }
}

}  // namespace

void SaveFormState(Run& run, std::span<const FormControl> controls, std::string_view file) {
    for (const FormControl& control : controls)
        if (auto state = StateOf(control.name))
            run.WriteIni(state->section, state->key, ValueOf(control, state->kind), file);
}

void RestoreFormState(const Run& run, std::span<FormControl> controls, std::string_view file) {
    for (FormControl& control : controls)
        if (auto state = StateOf(control.name))
            SetValue(control, state->kind, run.ReadIni(state->section, state->key, file));
}

}  // namespace vexlator::config

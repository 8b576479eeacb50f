// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Ini.h"
#include "config/Installation.h"
#include "config/Keys.h"
#include "startup/Findings.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// The logic of the options window, without the window: changed values of gv.ini. Nothing is written before
/// the user is done, and only changes are written.
class OptionsModel {
public:
    /// The installation must outlive the model.
    explicit OptionsModel(config::Installation& installation);

    /// Every declared key, with those of one section together. In some sections a key can have any name.
    const config::KeyList& Keys() const { return keys_; }

    /// The changed value, else the value in the file; "" if it is missing.
    std::string Value(std::string_view section, std::string_view key) const;
    void Set(std::string_view section, std::string_view key, std::string_view value);
    bool IsChanged(std::string_view section, std::string_view key) const;
    bool IsChanged() const { return !changes_.empty(); }
    /// Whether a flag or switch differs from its default, or another value differs from both that of a new
    /// installation and its default.
    bool DiffersFromDefault(const config::Key& key) const;

    /// A control of the background options, by its name: its displayed and its set value.
    std::string TextOf(std::string_view control) const;
    void SetText(std::string_view control, std::string_view text);
    bool IsOn(std::string_view control) const;
    void SetOn(std::string_view control, bool isOn);
    /// The page layers of PDF maps, one per line; stored with backslashes between them.
    std::string PdfLayerLines() const;
    void SetPdfLayerLines(std::string_view lines);
    /// "1" for version 10, "2" for 10.2, "5" for 10.5, "0" for none.
    std::string EsriVersion() const;
    void SetEsriVersion(std::string_view version);

    /// The findings about the file if it were written now, including missing folders.
    std::vector<Finding> Findings() const;

    /// Writes the changes. All other bytes of the file stay.
    /// @throws platform::ReadError, platform::WriteError; changes that are not written remain changes
    void Save();

private:
    struct Change {
        std::string section, key, value;
    };
    const Change* ChangeOf(std::string_view section, std::string_view key) const;
    std::string Stored(std::string_view section, std::string_view key) const;
    void Read();

    config::Installation& installation_;
    config::KeyList keys_;
    std::string text_;                       ///< text of gv.ini when it was opened or saved
    std::optional<config::IniText> stored_;  ///< the same, parsed
    std::vector<Change> changes_;
};

}  // namespace vexlator::startup

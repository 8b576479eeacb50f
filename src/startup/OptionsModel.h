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

/// What the options window decides, without a window: values of gv.ini that are changed, and written when
/// the person is done. Nothing is written before, and only what has changed.
class OptionsModel {
public:
    /// The installation outlives the model.
    explicit OptionsModel(config::Installation& installation);

    /// Every key that is declared, those of one section together; in some sections a key can have any name.
    const config::KeyList& Keys() const { return keys_; }

    /// As it will be written, else as it stands in the file; "" when it is missing.
    std::string Value(std::string_view section, std::string_view key) const;
    void Set(std::string_view section, std::string_view key, std::string_view value);
    bool IsChanged(std::string_view section, std::string_view key) const;
    bool IsChanged() const { return !changes_.empty(); }
    /// A flag or switch is set otherwise than it counts when missing; another value is neither that of a new
    /// installation nor what holds without one.
    bool DiffersFromDefault(const config::Key& key) const;

    /// A control of the background options, by its name: what it shows, and what it was set to.
    std::string TextOf(std::string_view control) const;
    void SetText(std::string_view control, std::string_view text);
    bool IsOn(std::string_view control) const;
    void SetOn(std::string_view control, bool isOn);
    /// The page layers of PDF maps, a line each; stored joined by a backslash.
    std::string PdfLayerLines() const;
    void SetPdfLayerLines(std::string_view lines);
    /// "1" for version 10, "2" for 10.2, "5" for 10.5, "0" for none.
    std::string EsriVersion() const;
    void SetEsriVersion(std::string_view version);

    /// What the file would be found to have, were it written now; folders that are missing too.
    std::vector<Finding> Findings() const;

    /// Writes what was changed; every other byte of the file stays.
    /// @throws platform::ReadError, platform::WriteError; what is not written remains changed
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
    std::string text_;                       ///< of gv.ini when it was opened or saved
    std::optional<config::IniText> stored_;  ///< the same
    std::vector<Change> changes_;
};

}  // namespace vexlator::startup

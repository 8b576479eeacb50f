// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Run.h"
#include "startup/CommandLine.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::startup {

/// What the controls of the selection window hold. Members have the names of their controls, and of their
/// keys in [OPTION] of gv.ini, which GO options preset.
struct SelectionSettings {
    /// Text box. The source's path; its last part can be a pattern, as in C:\maps\*.shp. Several files, of
    /// any kinds and folders, are separated by "|"; a name without a folder lies beside the first one.
    std::string txtSource = {};
    /// Text box. The package's path (.GRP); its folder is the output folder.
    std::string txttarget = {};
    /// Text box. Background styling file (.BSF); "" for none.
    std::string txtStyling = {};
    bool chkAll = false;          ///< check box: every file in the source's folder that has its extension
    bool chkClear = false;        ///< check box: the output folder is cleared of packages before
    bool chkExplode = false;      ///< check box: symbols are taken apart ([GRP] DONTEXPLODE is its opposite)
    bool chkApplyMMCOU = false;   ///< check box, for GML and GZ: change-only updates are applied
    bool chkInteractive = false;  ///< check box: helper programs show their windows
    bool chkKeepOpen = false;     ///< check box of the window alone: it stays open after Go

    /// The files that txtSource lists with "|", with their folders; none when it is one path.
    std::vector<std::string> ListedFiles() const;
};

/// The longest value that gv.ini gives back.
inline constexpr std::size_t longestIniValue = 2047;

/// Reads the controls from [OPTION] (RestoreFormState), and writes them there (SaveFormState). A list of
/// files that gv.ini cannot hold is cut behind a whole path.
SelectionSettings RestoreSelection(const config::Run& run);
void SaveSelection(config::Run& run, const SelectionSettings& choices);

/// Presets the controls that options of a GO command name.
void Preset(SelectionSettings& choices, std::span<const GoOption> options);

/// The same with whole paths, which mean the same to every program. A target without the extension GRP is the
/// package's folder, which gives it its name.
SelectionSettings WithWholePaths(SelectionSettings choices);

/// The settings of an image that was cut into tiles: `imagePath` is the source, every file of its kind is
/// converted, and the target gets the name of its folder, without "_files".
void ResetToJPGlist(SelectionSettings& choices, std::string_view imagePath);

/// The package's path for a source that was chosen (btnBrowseSelect): in the folder of the target that is set
/// (without one: a folder beside the source with its name), with the source's base name. Images keep the
/// target that is set.
std::string TargetFor(std::string_view source, std::string_view target);

/// A command line for a shell that does what Go does with these choices in the same installation.
struct ShownCommand {
    /// What a GO command cannot carry: its items end at commas and at the second "=", and lose outer blanks.
    enum class Problem {
        None,
        Separator,   ///< a comma, a "=" or a line end
        OuterBlank,  ///< at its beginning or its end
        TooLong      ///< for gv.ini, which gives back longestIniValue characters
    };
    std::string line;  ///< as in vexlator "GO txtSource=..."; "" when there is none
    Problem problem = Problem::None;
    std::string control = {};  ///< that has the problem
};
ShownCommand ShowAsCommand(const SelectionSettings& choices);

config::KeyList SelectionKeys();

}  // namespace vexlator::startup

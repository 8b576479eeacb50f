// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <span>
#include <string>
#include <string_view>

/// How a window's controls keep their state between runs. A control's name says what it is and where its
/// state stands: "chk", "txt", "cbo" and "opt" under their own name in [OPTION]; a text box named
/// gtxtGRP_GRIDSIZE as GRIDSIZE in [GRP], where conversions read it. Controls of other names are left alone.
namespace vexlator::config {

struct FormControl {
    std::string name;
    std::string text = {};  ///< txt, gtxt
    int number = 0;         ///< chk: 0 unchecked, 1 checked, 2 greyed; cbo: list index, -1 for no selection
    bool selected = false;  ///< opt
    int listSize = 0;       ///< cbo: how many entries the list has
};

/// Writes the state of the controls. An empty file means gv.ini.
void SaveFormState(Run& run, std::span<const FormControl> controls, std::string_view file = "");

/// Reads it back. A missing key unchecks, clears, selects the first entry or deselects; a number that the
/// control cannot have leaves it as it is.
void RestoreFormState(const Run& run, std::span<FormControl> controls, std::string_view file = "");

}  // namespace vexlator::config

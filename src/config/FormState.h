// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"

#include <span>
#include <string>
#include <string_view>

/// How a window's controls keep their state between runs. The prefix of a control's name says its kind and
/// where its state is stored. "chk", "txt", "cbo" and "opt" controls are stored under their own name in
/// [OPTION]. A text box named gtxtGRP_GRIDSIZE is stored as GRIDSIZE in [GRP], where conversions read it.
/// Controls with other names are left alone.
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

/// Restores the state. A missing key unchecks, clears, selects the first entry or deselects. A control keeps
/// its state if the stored number is not valid for it.
void RestoreFormState(const Run& run, std::span<FormControl> controls, std::string_view file = "");

}  // namespace vexlator::config

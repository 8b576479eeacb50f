// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"

namespace vexlator::startup {

/// Every key of gv.ini that some code reads, with those of one section together.
config::KeyList AllKeys();

/// The same for users: a page of Markdown, with a table for each section.
std::string SettingsPage();

}  // namespace vexlator::startup

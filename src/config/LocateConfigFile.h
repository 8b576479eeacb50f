// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace vexlator::config {

/// The full path of the main configuration file. application.ini in the program folder gives it as [CONFIG]
/// APPINI, with every %USERNAME% and %username% replaced by the current user's login name. Without it, the
/// path is `fileName` in the program folder.
std::string LocateConfigFile(std::string_view programFolder, std::string_view fileName);

}  // namespace vexlator::config

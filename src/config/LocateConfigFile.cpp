// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "config/LocateConfigFile.h"

#include "config/Ini.h"
#include "util/Paths.h"
#include "util/Programs.h"
#include "util/Text.h"

namespace vexlator::config {

std::string LocateConfigFile(std::string_view programFolder, std::string_view fileName) {
    std::string path = ReadIniFile(util::JoinPath(programFolder, "application.ini"), "CONFIG", "APPINI");
    if (path.empty()) return util::JoinPath(programFolder, fileName);
    for (std::string_view mark : {"%USERNAME%", "%username%"})
        path = util::ReplaceAll(path, mark, util::UserName());
    return path;
}

}  // namespace vexlator::config

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Registry.h"

#include "platform/Files.h"
#include "platform/Paths.h"

#include <cstdlib>

namespace vexlator::platform {

namespace {

std::string RegistryFolder() {
    if (const char* folder = std::getenv("VEXLATOR_REGISTRY"); folder && *folder) return folder;
    return UserDataFolder() + "/vexlator/registry";
}

}  // namespace

std::string RegistryValue(Hive hive, std::string_view key, std::string_view value) {
    std::string path = RegistryFolder() + (hive == Hive::CurrentUser ? "/user/" : "/machine/");
    path.append(key).append("/").append(value);
    try {
        MappedFile file(path);
        return std::string(file.Text().substr(0, file.Text().find_first_of("\r\n")));
    } catch (const ReadError&) {
        return "";
    }
}

}  // namespace vexlator::platform

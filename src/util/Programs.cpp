// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Programs.h"

#include "platform/Paths.h"
#include "platform/Process.h"
#include "platform/Registry.h"
#include "util/Paths.h"

namespace vexlator::util {

std::string UserName() {
    return platform::CurrentUser();
}
std::string LocaleCountry() {
    return platform::LocaleCountry();
}

void OpenDocument(std::string_view path) {
    if (path.starts_with('"')) path.remove_prefix(1);
    if (path.ends_with('"')) path.remove_suffix(1);
    platform::OpenWithDesktop(platform::NativePath(platform::AbsolutePath(path)));
}

std::string VectorDrawConverterPath(std::string_view programFolder) {
    using platform::Hive;
    for (Hive hive : {Hive::CurrentUser, Hive::Machine}) {
        std::string path =
            platform::RegistryValue(hive, "SOFTWARE\\VectorDraw\\UserValues", "DrawingConvertAppPath");
        if (!path.empty()) return path;
    }
    return JoinPath(programFolder, "vdconv.exe");
}

std::string CommonFilesFolder() {
    constexpr std::string_view key = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion";
    std::string folder = platform::RegistryValue(platform::Hive::Machine, key, "CommonFilesDir (x86)");
    return folder.empty() ? platform::RegistryValue(platform::Hive::Machine, key, "CommonFilesDir") : folder;
}

}  // namespace vexlator::util

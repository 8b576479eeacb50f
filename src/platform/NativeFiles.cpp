// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/NativeFiles.h"

#include "platform/Paths.h"

#include <atomic>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace vexlator::platform {

namespace fs = std::filesystem;

std::string Reason(int error) {
    return std::generic_category().message(error);
}

std::string FolderPart(const std::string& native) {
    std::size_t slash = native.rfind('/');
    if (slash == std::string::npos) return ".";
    return slash == 0 ? "/" : native.substr(0, slash);
}

std::string NamePart(const std::string& native) {
    std::size_t slash = native.rfind('/');
    return slash == std::string::npos ? native : native.substr(slash + 1);
}

bool IsTemporaryName(std::string_view name) {
    return name.size() > temporaryEnding.size() && name.front() == '.' && name.ends_with(temporaryEnding);
}

std::string NewTemporaryName(const std::string& native) {
    static std::atomic<unsigned> counter{0};
    return FolderPart(native) + "/." + NamePart(native).substr(0, 200) + "." + std::to_string(::getpid()) +
           "-" + std::to_string(counter++) + std::string(temporaryEnding);
}

std::vector<std::string> EntriesOf(const std::string& native) {
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator it(native, error), end; !error && it != end; it.increment(error))
        names.push_back(it->path().filename().string());
    return names;
}

void RemoveOtherCases(const std::string& native) {
    std::string folder = FolderPart(native), name = NamePart(native);
    std::error_code error;
    for (fs::directory_iterator it(folder, error), end; !error && it != end; it.increment(error)) {
        std::string entry = it->path().filename().string();
        std::error_code ignored;
        if (entry != name && SameNoCase(entry, name) && !it->is_directory(ignored))
            fs::remove(it->path(), ignored);
    }
}

std::string FollowLink(const std::string& native) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(native, error))) return native;
    fs::path target = fs::weakly_canonical(native, error);
    return error ? native : target.string();
}

}  // namespace vexlator::platform

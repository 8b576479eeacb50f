// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "platform/Paths.h"

#include "platform/AsciiCase.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <vector>

namespace vexlator::platform {

namespace fs = std::filesystem;

namespace {

bool IsLetter(char c) {
    return LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z';
}

std::string WithSlashes(std::string_view path) {
    std::string text(path);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

bool IsDrivePath(std::string_view p) {
    return p.size() >= 2 && IsLetter(p[0]) && p[1] == ':';
}
bool IsServerPath(std::string_view p) {
    return p.size() > 2 && p[0] == '\\' && p[1] == '\\';
}

std::string DrivesFolder() {
    if (const char* drives = std::getenv("VEXLATOR_DRIVES"); drives && *drives) return drives;
    return UserDataFolder() + "/vexlator/drives";
}

std::string UserFolder(const char* variable, const char* belowHome) {
    if (const char* folder = std::getenv(variable); folder && *folder) return folder;
    const char* home = std::getenv("HOME");
    return std::string(home ? home : "") + belowHome;
}

bool Exists(const std::string& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

/// The entry of a folder with this `name`, except for letter case. If several match: the first in sorted
/// order.
std::string EntryNoCase(const std::string& folder, std::string_view name) {
    std::string found;
    std::error_code error;
    for (fs::directory_iterator it(folder.empty() ? "." : folder, error), end; !error && it != end;
         it.increment(error)) {
        std::string entry = it->path().filename().string();
        if (SameNoCase(entry, name) && (found.empty() || entry < found)) found = entry;
    }
    return found;
}

std::vector<std::string> Components(const std::string& native) {
    std::vector<std::string> parts;
    for (std::size_t begin = 0; begin <= native.size();) {
        std::size_t end = std::min(native.find('/', begin), native.size());
        if (end > begin) parts.emplace_back(native, begin, end - begin);
        begin = end + 1;
    }
    return parts;
}

std::string Append(const std::string& folder, const std::string& name) {
    if (folder.empty()) return name;
    return folder.back() == '/' ? folder + name : folder + "/" + name;
}

/// Walks `native` component by component. Stops matching at the first component that is missing in any case.
/// `complete` says whether it reached the end.
std::string MatchNoCase(const std::string& native, bool& complete) {
    std::string result = !native.empty() && native[0] == '/' ? "/" : "";
    complete = true;
    for (const std::string& part : Components(native)) {
        std::string exact = Append(result, part);
        if (complete && !Exists(exact)) {
            std::string entry = EntryNoCase(result, part);
            if (entry.empty())
                complete = false;
            else
                exact = Append(result, entry);
        }
        result = std::move(exact);
    }
    return result;
}

}  // namespace

std::string UserDataFolder() {
    return UserFolder("XDG_DATA_HOME", "/.local/share");
}

std::string UserConfigFolder() {
    return UserFolder("XDG_CONFIG_HOME", "/.config");
}

std::string NativePath(std::string_view path) {
    if (IsDrivePath(path)) {
        std::string rest = WithSlashes(path.substr(2));
        if (!rest.empty() && rest[0] != '/') rest.insert(rest.begin(), '/');
        return DrivesFolder() + "/" + UpperAscii(path[0]) + rest;
    }
    if (IsServerPath(path)) return DrivesFolder() + "/unc/" + WithSlashes(path.substr(2));
    return WithSlashes(path);
}

std::string FindExisting(std::string_view path) {
    std::string native = NativePath(path);
    if (native.empty()) return "";
    if (Exists(native)) return native;
    bool complete = false;
    std::string match = MatchNoCase(native, complete);
    return complete ? match : "";
}

std::string PathToWrite(std::string_view path) {
    std::string native = NativePath(path);
    std::size_t slash = native.rfind('/');
    if (slash == std::string::npos || slash == 0) return native;
    std::string folder = native.substr(0, slash);
    if (Exists(folder)) return native;
    std::error_code ignored;
    if (IsDrivePath(path) && FindExisting(path.substr(0, 2)).empty())
        fs::create_directories(NativePath(path.substr(0, 2)), ignored);
    bool complete = false;
    return MatchNoCase(folder, complete) + native.substr(slash);
}

std::string RealPath(std::string_view path) {
    std::error_code error;
    fs::path real = fs::canonical(FindExisting(path), error);
    return error ? "" : real.string();
}

bool IsLink(std::string_view path) {
    std::error_code ignored;
    return fs::is_symlink(fs::symlink_status(NativePath(path), ignored));
}

std::string AbsolutePath(std::string_view path) {
    if (path.empty() || IsDrivePath(path) || IsServerPath(path)) return std::string(path);
    if (path[0] == '/' || path[0] == '\\') return std::string(path);
    std::error_code ignored;
    return fs::current_path(ignored).string() + "/" + std::string(path);
}

}  // namespace vexlator::platform

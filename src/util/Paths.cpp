// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Paths.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "platform/Paths.h"

#include <algorithm>
#include <array>

namespace vexlator::util {

namespace {

constexpr std::size_t longestFileName = 120;  // bytes; leaves room for endings within the 255 of file systems

bool IsForbidden(char c) {
    return static_cast<unsigned char>(c) < 0x20 || c == 0x7F ||
           std::string_view("\\/:*?\"<>|").find(c) != std::string_view::npos;
}

/// Names that are devices on Windows, with any extension.
bool IsDeviceName(std::string_view name) {
    std::string stem = platform::UpperAscii(name.substr(0, name.find('.')));
    while (stem.ends_with(' ')) stem.pop_back();
    static constexpr std::array<std::string_view, 6> devices = {"CON", "PRN",    "AUX",
                                                                "NUL", "CONIN$", "CONOUT$"};
    if (std::find(devices.begin(), devices.end(), stem) != devices.end()) return true;
    return stem.size() == 4 && (stem.starts_with("COM") || stem.starts_with("LPT")) && stem[3] >= '1' &&
           stem[3] <= '9';
}

bool IsTaken(const std::string& path) {
    return !platform::FindExisting(path).empty() ||
           !platform::FindExisting(ChangeExtension(path, "BAK")).empty();
}

}  // namespace

std::string FolderOf(std::string_view path) {
    std::size_t separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? "" : std::string(path.substr(0, separator));
}

std::string FileNameOf(std::string_view path) {
    return std::string(path.substr(path.find_last_of("\\/") + 1));
}

std::string ExtensionOf(std::string_view path) {
    std::size_t stop = path.rfind('.');
    return stop == std::string_view::npos ? "" : std::string(path.substr(stop + 1));
}

std::string BaseNameOf(std::string_view path) {
    return ChangeExtension(FileNameOf(path), "");
}

std::string ChangeExtension(std::string_view path, std::string_view extension) {
    std::size_t stop = path.rfind('.');
    std::string changed(path.substr(0, stop));
    if (stop != std::string_view::npos && !extension.empty()) changed.append(".").append(extension);
    return changed;
}

std::string JoinPath(std::string_view folder, std::string_view name) {
    return std::string(folder).append("\\").append(name);
}

std::string SafeFileName(std::string_view name) {
    if (name.find_first_not_of('.') == std::string_view::npos) return "_";
    std::string safe(name);
    std::replace_if(safe.begin(), safe.end(), IsForbidden, '_');
    if (IsDeviceName(safe)) safe.insert(0, 1, '_');
    return std::string(platform::CutUtf8(safe, longestFileName));
}

std::string NextFreeName(std::string_view path) {
    if (!IsTaken(std::string(path))) return std::string(path);
    std::string name = FileNameOf(path), base = BaseNameOf(name);
    std::string before(path.substr(0, path.size() - name.size()));
    before += base.substr(0, base.find('('));
    std::string after = name.substr(base.size());
    for (int n = 1;; ++n) {
        std::string candidate = before + "(" + std::to_string(n) + ")" + after;
        if (!IsTaken(candidate)) return candidate;
    }
}

}  // namespace vexlator::util

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "util/Files.h"

#include "platform/AsciiCase.h"
#include "platform/CodePages.h"
#include "util/Paths.h"

#include <algorithm>
#include <cstring>
#include <vector>

namespace vexlator::util {

namespace {

bool IsPattern(std::string_view path) {
    return path.find('*') != std::string_view::npos;
}

/// Full paths of the files that match the pattern in its folder.
std::vector<std::string> MatchingFiles(std::string_view pattern) {
    std::string wanted = FileNameOf(pattern);
    // A pattern without a separator looks in the current folder.
    std::string before(pattern.substr(0, pattern.size() - wanted.size()));
    std::vector<std::string> paths = platform::ListFiles(before.empty() ? "." : before);
    std::erase_if(paths, [&](const std::string& name) { return !MatchesPattern(name, wanted); });
    for (std::string& name : paths) name.insert(0, before);
    return paths;
}

bool CopyOne(std::string_view source, std::string_view target) {
    try {
        platform::CopyWholeFile(source, target);
        return true;
    } catch (const platform::ReadError&) {
        return false;
    } catch (const platform::WriteError&) {
        return false;
    }
}

/// Bytes of the UTF-8 character at the start of a text that is not empty.
std::size_t CharacterSize(std::string_view text) {
    std::size_t size = 1;
    while (size < text.size() && platform::ContinuesCharacter(text[size])) ++size;
    return size;
}

/// Whether the inside of brackets, as in "a-c3", names the character.
bool IsInSet(std::string_view set, std::string_view character) {
    if (character.size() > 1) return set.find(character) != std::string_view::npos;
    const char wanted = platform::LowerAscii(character[0]);
    for (std::size_t i = 0; i < set.size(); ++i) {
        const char first = platform::LowerAscii(set[i]);
        if (i + 2 < set.size() && set[i + 1] == '-') i += 2;
        if (wanted >= first && wanted <= platform::LowerAscii(set[i])) return true;
    }
    return false;
}

/// How much of the pattern's begin, "*" aside, the character matches; 0 when it does not.
std::size_t LengthMatching(std::string_view pattern, std::string_view character, Brackets brackets) {
    if (pattern.starts_with('?')) return 1;
    const bool isSet = brackets == Brackets::Set && pattern.starts_with('[');
    if (std::size_t end = isSet ? pattern.find(']', 2) : std::string_view::npos;
        end != std::string_view::npos)
        return IsInSet(pattern.substr(1, end - 1), character) ? end + 1 : 0;
    bool isSame = platform::SameNoCase(character, pattern.substr(0, character.size()));
    return isSame ? character.size() : 0;
}

/// Where `wanted`, which is not empty, occurs next at or after `from`; the end of the text when nowhere.
std::size_t Find(std::string_view text, std::size_t from, char wanted) {
    const void* hit = std::memchr(text.data() + from, wanted, text.size() - from);
    return hit ? static_cast<std::size_t>(static_cast<const char*>(hit) - text.data()) : text.size();
}

}  // namespace

std::uint64_t FileSize(std::string_view path) {
    return platform::SizeOfFile(path);
}
void MakeFolder(std::string_view path) {
    platform::CreateFolder(path);
}
void MakeFolderTree(std::string_view path) {
    platform::CreateFolderTree(path);
}
void RemoveFolder(std::string_view path) {
    platform::RemoveEmptyFolder(path);
}

void DeleteFiles(std::string_view pathOrPattern) {
    if (!IsPattern(pathOrPattern)) {
        platform::RemoveFile(pathOrPattern);
        return;
    }
    for (const std::string& path : MatchingFiles(pathOrPattern)) platform::RemoveFile(path);
}

bool CopyFiles(std::string_view sourceOrPattern, std::string_view target) {
    if (!IsPattern(sourceOrPattern)) return FileSize(sourceOrPattern) > 0 && CopyOne(sourceOrPattern, target);
    bool any = false;
    for (const std::string& path : MatchingFiles(sourceOrPattern))
        any |= CopyOne(path, JoinPath(FolderOf(target), FileNameOf(path)));
    return any;
}

bool MoveFile(std::string_view source, std::string_view target) {
    return FileSize(source) > 0 && platform::RenameFile(source, target);
}

bool WriteTextFile(std::string_view path, std::string_view text) {
    try {
        platform::ReplaceFile(path, std::string(text) + "\r\n");
        return true;
    } catch (const platform::WriteError&) {
        return false;
    }
}

std::string ReadFirstLine(std::string_view path) {
    auto file = OpenFile(path);
    return file ? std::string(LineReader(file->Text()).ReadTextLine()) : "";
}

bool MatchesPattern(std::string_view name, std::string_view pattern, Brackets brackets) {
    if (pattern == "*.*") return true;
    // Where to go on after a mismatch: the last "*" takes one character more.
    std::string_view starPattern, starName;
    bool star = false;
    while (!name.empty()) {
        std::string_view character = name.substr(0, CharacterSize(name));
        if (pattern.starts_with('*')) {
            pattern.remove_prefix(1);
            starPattern = pattern;
            starName = name;
            star = true;
        } else if (std::size_t length = LengthMatching(pattern, character, brackets); length > 0) {
            pattern.remove_prefix(length);
            name.remove_prefix(character.size());
        } else if (star) {
            starName.remove_prefix(CharacterSize(starName));
            name = starName;
            pattern = starPattern;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*') == std::string_view::npos;
}

std::optional<platform::MappedFile> OpenFile(std::string_view path) {
    try {
        return std::make_optional<platform::MappedFile>(path);
    } catch (const platform::ReadError&) {
        return std::nullopt;
    }
}

std::string_view LineReader::ReadTextLine() {
    if (AtEnd()) return {};
    ++line_;
    if (nextLineFeed_ < position_ || line_ == 1) nextLineFeed_ = Find(text_, position_, '\n');
    std::string_view line = text_.substr(position_, nextLineFeed_ - position_);
    std::size_t carriageReturn = line.empty() ? 0 : Find(line, 0, '\r');
    std::size_t end = position_ + carriageReturn;
    bool pair = carriageReturn < line.size() && end + 1 == nextLineFeed_ && nextLineFeed_ < text_.size();
    position_ = std::min(end + (pair ? 2 : 1), text_.size());
    return line.substr(0, carriageReturn);
}

std::string FindTempFolder() {
    std::string folder;
    for (char drive = 'C'; drive <= 'Z'; ++drive) {
        std::string temp = std::string(1, drive) + ":\\temp";
        folder = JoinPath(temp, "gv");
        MakeFolder(temp);
        MakeFolder(folder);
        try {
            platform::ReplaceFile(JoinPath(folder, "gv.mrk"), "");
            break;
        } catch (const platform::WriteError&) {
            // Tries the next drive.
        }
    }
    return folder;
}

}  // namespace vexlator::util

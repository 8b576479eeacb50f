// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "batch/Slices.h"

#include "platform/Files.h"
#include "util/Files.h"

#include <cstdio>
#include <memory>

namespace vexlator::batch {

namespace {

constexpr std::string_view nameFile = "/array";

/// What a file holds from an offset on. Opened anew each time: only so a shared folder shows what others
/// wrote.
std::string ReadFrom(const std::string& path, std::uint64_t offset) {
    struct Close {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Close> file(std::fopen(path.c_str(), "rb"));
    if (!file || std::fseek(file.get(), static_cast<long>(offset), SEEK_SET) != 0) return "";
    std::string text, piece(std::size_t{1} << 16, '\0');
    while (std::size_t size = std::fread(piece.data(), 1, piece.size(), file.get()))
        text.append(piece, 0, size);
    return text;
}

}  // namespace

Slices::Slices(const std::string& journal) : folder_(journal + ".slices") {}

bool Slices::AreThere() const {
    return platform::FolderExists(folder_);
}

std::string Slices::ArrayName() const {
    return ReadFrom(folder_ + std::string(nameFile), 0);
}

std::string Slices::ListPath(std::size_t number) const {
    return folder_ + "/" + std::to_string(number) + ".list";
}

void Slices::Make(const std::vector<std::vector<std::string>>& lists, const std::string& script,
                  const std::string& arrayName) {
    Remove();
    platform::RequireFolder(folder_);
    taken_.assign(lists.size(), 0);
    for (std::size_t i = 0; i < lists.size(); ++i) {
        std::string text;
        for (const std::string& command : lists[i]) text += command + "\n";
        platform::ReplaceFile(ListPath(i + 1), text);
    }
    platform::ReplaceFile(folder_ + "/task", script);
    platform::ReplaceFile(folder_ + std::string(nameFile), arrayName);
}

void Slices::Find() {
    taken_.clear();
    while (platform::FileExists(ListPath(taken_.size() + 1))) taken_.push_back(0);
}

void Slices::Remove() {
    for (const std::string& name : platform::ListFiles(folder_)) platform::RemoveFile(folder_ + "/" + name);
    util::RemoveFolder(folder_);
}

void Slices::TakeNew(const Take& take) {
    for (std::size_t i = 0; i < taken_.size(); ++i) {
        std::string journal = ListPath(i + 1) + ".journal";
        if (platform::SizeOfFile(journal) <= taken_[i]) continue;
        std::string text = ReadFrom(journal, taken_[i]);
        text.resize(text.rfind('\n') + 1);
        taken_[i] += text.size();
        std::vector<Entry> entries;
        for (util::LineReader lines(text); !lines.AtEnd();) {
            std::optional<Entry> entry = Entry::FromJson(lines.ReadTextLine());
            if (entry && !entry->command.empty()) entries.push_back(std::move(*entry));
        }
        if (!entries.empty()) take(std::move(entries));
    }
}

}  // namespace vexlator::batch

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// File helpers that never raise an error: callers look at the results.
namespace vexlator::util {

/// Size in bytes; 0 if the file does not exist or cannot be read. A size above 0 means that the file exists
/// and is not empty.
std::uint64_t FileSize(std::string_view path);
/// Creates one folder level; errors are ignored.
void MakeFolder(std::string_view path);
/// Creates every missing level.
void MakeFolderTree(std::string_view path);
/// Removes an empty folder; errors are ignored.
void RemoveFolder(std::string_view path);
/// Without "*" deletes the file; with "*" every file of the folder that matches the pattern.
void DeleteFiles(std::string_view pathOrPattern);
/// With "*" in the source: copies every match into the folder of the target, under its own name. Without "*":
/// copies the file if it exists and is not empty. Returns whether anything was copied.
bool CopyFiles(std::string_view sourceOrPattern, std::string_view target);
/// Renames the source to the target if the source exists and is not empty. Replaces an existing target.
bool MoveFile(std::string_view source, std::string_view target);
/// Replaces the file's content by the text and a line end (CR LF).
bool WriteTextFile(std::string_view path, std::string_view text);
/// The first line; "" when the file does not exist or is empty.
std::string ReadFirstLine(std::string_view path);
/// Names match a pattern in which "*" stands for any text and "?" for one character; "*.*" matches every
/// name, as on Windows. Letter case does not count. Brackets stand for themselves or, as in "[a-c3]", for
/// one character of a set.
enum class Brackets { Literal, Set };
bool MatchesPattern(std::string_view name, std::string_view pattern, Brackets brackets = Brackets::Literal);

/// Opens a file for reading; nothing if that fails.
std::optional<platform::MappedFile> OpenFile(std::string_view path);

/// Text lines that end in CR LF, LF or CR, from a buffer.
class LineReader {
public:
    explicit LineReader(std::string_view text) : text_(text) {}
    bool AtEnd() const { return position_ >= text_.size(); }
    /// The next line without its line end. The last line may lack a line end.
    std::string_view ReadTextLine();
    /// Where the next line begins.
    std::size_t Position() const { return position_; }
    /// Number of the last line read, from 1.
    std::uint64_t Line() const { return line_; }

private:
    std::string_view text_;
    std::size_t position_ = 0;
    std::size_t nextLineFeed_ = 0;  ///< kept from line to line, as a file with CR line ends may have none
    std::uint64_t line_ = 0;
};

/// The scratch folder X:\temp\gv of the first drive, C to Z, where its marker file can be written.
std::string FindTempFolder();

}  // namespace vexlator::util

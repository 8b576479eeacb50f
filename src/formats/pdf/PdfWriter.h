// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Files.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Objects of PDF files (ISO 32000-1), with as much of the format as books of pages need.
namespace vexlator::formats {

/// Text for people: UTF-8 as a PDF string, with parentheses.
std::string PdfText(std::string_view text);
/// Bytes as a PDF string.
std::string PdfBytes(std::string_view bytes);
/// With at most `decimals` decimals, none of them a useless 0.
std::string PdfNumber(double value, int decimals = 4);
/// A reference to an object, as in "7 0 R".
std::string PdfReference(int number);

/// The table of where a file's objects are, and what follows it.
class PdfObjectTable {
public:
    void Add(int number, std::uint64_t offset) { offsets_[number] = offset; }
    /// The table of all added objects, in ranges of neighbours. `trailer` is what the trailer dictionary
    /// holds.
    std::string Text(std::uint64_t ownOffset, std::string_view trailer) const;

private:
    std::map<int, std::uint64_t> offsets_;
};

/// Writes a PDF file object by object. Objects have numbers before they are written, so that others can refer
/// to them. The same calls give the same bytes.
class PdfWriter {
public:
    /// Writes the file's first lines. The caller commits the file.
    explicit PdfWriter(platform::OutputFile& file);

    /// The number of an object that will be written.
    int NewObject() { return ++objects_; }
    /// @throws platform::WriteError, as for the members below
    void Write(int number, std::string_view content);
    /// `entries` of the dictionary, without the length.
    void WriteStream(int number, std::string_view entries, std::string_view bytes);
    /// Writes the table of all objects.
    void Finish(int catalogue, int information);

private:
    void Begin(int number);

    platform::OutputFile& file_;
    int objects_ = 0;
    PdfObjectTable table_;
};

}  // namespace vexlator::formats

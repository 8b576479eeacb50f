// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::formats {

struct XlsxColumn {
    std::string name;
    int width = 0;  ///< in characters
};

/// A workbook of tables that is being written. The cells of a table come row by row: BeginRow(), a cell for
/// each column, in order. The rows of tables can mix.
/// @throws platform::WriteError, from every member but the counters
class XlsxRows {
public:
    XlsxRows() = default;
    virtual ~XlsxRows() = default;
    XlsxRows(const XlsxRows&) = delete;
    XlsxRows& operator=(const XlsxRows&) = delete;

    /// Returns the table's number, counted from 0.
    virtual std::size_t AddTable(std::string_view name, const std::vector<XlsxColumn>& columns) = 0;
    virtual void BeginRow(std::size_t table) = 0;
    /// An empty text leaves its cell empty. What is no UTF-8 is read as Windows-1252.
    virtual void AddText(std::string_view text) = 0;
    virtual void AddNumber(double number) = 0;
    /// A text that opens a file beside the workbook, or below its folder; `path` has "/" between folders.
    virtual void AddLink(std::string_view path, std::string_view text) = 0;
    virtual void Finish() = 0;

    /// Whether the workbook has a place for a table, and for one of its columns.
    virtual bool Takes(std::size_t table) const = 0;
    virtual bool Takes(std::size_t table, std::size_t column) const = 0;
    /// Texts longer than a cell holds, cut so far.
    std::uint64_t Cut() const { return cut_; }
    /// Links more than a sheet holds, or too long, written as texts.
    std::uint64_t PlainLinks() const { return plainLinks_; }

    static constexpr std::uint32_t mostRows = 1048576;
    static constexpr std::size_t mostColumns = 16384;

protected:
    /// A text as cells hold it: UTF-8 without NUL, at most 32,767 UTF-16 units, and nothing in it that
    /// readers take for an escaped character. Valid until the next call.
    const std::string& CellText(std::string_view text);

    std::uint64_t cut_ = 0, plainLinks_ = 0;

private:
    std::string prepared_;
};

/// The start of a UTF-8 text that has at most `most` UTF-16 units.
std::string_view FirstUtf16Units(std::string_view utf8, std::size_t most);

}  // namespace vexlator::formats

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::background {

/// What of a style line can be edited, in the order of the line.
enum class MobileField : std::uint8_t { Name, Type, Colour, Width, Pattern, Symbol };
constexpr int mobileFields = 6;

/// A mobile style file being edited: its lines as they stand, of which those with "=" are styles. What is not
/// edited stays byte for byte: other lines, fields beyond those known, line ends, the byte-order mark.
class MobileStyleFile {
public:
    explicit MobileStyleFile(std::string_view bytes = {});

    std::string Bytes() const;

    std::size_t LineCount() const { return lines_.size(); }
    bool IsStyle(std::size_t line) const;
    /// A field in UTF-8, without blanks around it; "" when the line ends before it.
    std::string Field(std::size_t line, MobileField field) const;
    /// All fields behind the name.
    std::string FieldsOf(std::size_t line) const;

    /// Writes a field, and empty ones before it where the line is too short; nothing when it is that already.
    /// @throws std::invalid_argument: why the file cannot hold the value, in a plain line
    void SetField(std::size_t line, MobileField field, std::string_view value);
    /// A new style before a line, or at the end; its line ends as the first does.
    void InsertStyle(std::size_t line, std::string_view name, std::string_view type);
    void RemoveLine(std::size_t line);

    /// What is wrong with a style, in a plain line; "" for nothing.
    std::string FaultOf(std::size_t line) const;

private:
    struct Line {
        std::string text, end;
    };
    struct Span {
        std::size_t begin, size;
    };
    /// Where a field stands in its line; behind the end of one that is too short.
    Span Find(const std::string& text, MobileField field) const;
    std::string Encode(std::string_view utf8) const;
    std::string Decode(std::string_view bytes) const;
    std::string LineEnd() const;

    std::string mark_;
    std::vector<Line> lines_;
    bool isUtf8_ = true;  ///< else Windows-1252
};

}  // namespace vexlator::background

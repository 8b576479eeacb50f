// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/TextEncoding.h"
#include "platform/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Writes delimited text for spreadsheets and other programs.
namespace vexlator::formats {

struct CsvLayout {
    char separator = ',';        ///< or a tab
    bool quote = false;          ///< RFC 4180 quoting; else every "," inside a text becomes the separator
    bool safeFormulas = false;   ///< a ' precedes texts that a spreadsheet would run, so that it shows them
    bool byteOrderMark = false;  ///< the file is UTF-8 with a byte-order mark; else it is Windows-1252
};

/// Positions of one geometry, in their form for writing.
struct CsvCoordinates {
    std::span<const util::PlanePoint> points;
    std::span<const double> heights;  ///< empty: all are 0
    int decimals = 3;                 ///< of x and y, 0 to 15; heights have three
    bool list = false;                ///< a ":" follows each position
};

/// Losses of texts on their way into a file.
struct CsvLosses {
    std::uint64_t replaced = 0;  ///< characters outside the file's encoding
    std::uint64_t broken = 0;    ///< texts without quotes that contain a separator, a quote or a line end
    bool operator==(const CsvLosses&) const = default;
    CsvLosses& operator+=(const CsvLosses& other);
    CsvLosses& operator-=(const CsvLosses& other);
};

/// Writes rows, field by field, into a file that the caller commits. Lines end in CR LF.
/// @throws platform::WriteError
class CsvWriter {
public:
    CsvWriter(platform::OutputFile& file, const CsvLayout& layout);

    void AddText(std::string_view text);
    /// A formula with which a spreadsheet opens the target.
    void AddHyperlink(std::string_view target);
    /// "x y z" as one field, or x, y and z as separate fields if they are `spread`. Positions of a list
    /// follow each other without a separator.
    void AddCoordinates(const CsvCoordinates& coordinates, bool spread);
    void EndRow();

    /// Later rows go to another file.
    void GoOnIn(platform::OutputFile& file) { file_ = &file; }
    /// Losses so far.
    CsvLosses Losses() const { return {encoder_.Replaced(), broken_}; }

private:
    void BeginField();
    std::string_view Encode(std::string_view text);
    bool BreaksRow(std::string_view text) const;
    void AddPosition(const util::PlanePoint& point, double height, const CsvCoordinates& as, char between);
    void Write(std::string_view text);
    /// Puts a ' before texts that a spreadsheet would run.
    std::string_view MadeSafe(std::string_view text, bool isFormula);

    platform::OutputFile* file_;
    CsvLayout layout_;
    TextEncoder encoder_;
    std::uint64_t broken_ = 0;
    std::string formula_, safe_, written_;
    bool rowBegun_ = false;
};

}  // namespace vexlator::formats

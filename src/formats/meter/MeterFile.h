// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Files.h"
#include "util/Geometry.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/// Reads the exchange file of a meter-reading system: a header line, then one line per meter. Fields are
/// separated by commas; remarks run to the end of their line. Reading and date of a meter that is still to be
/// read are empty. Text is UTF-8 if a line is valid UTF-8, else Windows-1252.
///     mr,05/03/2024,DRAWING,2,mr
///     cr,MeterRef,Reading,Date,Remarks
namespace vexlator::formats {

/// One meter. Valid until the next read.
struct MeterRecord {
    std::string_view reference, reading, date, remarks;
};

/// The position that remarks give: a grid reference and nothing else, x before y, each of at least six
/// digits. Nothing for other remarks, and for one of zeros alone, which stands for no position.
std::optional<util::PlanePoint> MeterPosition(std::string_view remarks);

/// The text must outlive the object.
class MeterFile {
public:
    /// @throws platform::ReadError, without a file name, if the text does not begin with a header
    explicit MeterFile(std::string_view text);

    /// The number of meters that the header announces.
    std::uint64_t Announced() const { return announced_; }
    /// False at the end. Blank lines are skipped; lines of other kinds are counted and skipped.
    /// @throws platform::ReadError, without a file name, for a line longer than longestLine
    bool Next(MeterRecord& record);

    std::uint64_t OtherLines() const { return otherLines_; }
    std::uint64_t FirstOtherLine() const { return firstOtherLine_; }
    std::size_t Position() const { return lines_.Position(); }

private:
    bool NextLine();

    util::LineReader lines_;
    std::string line_;  ///< decoded
    std::uint64_t announced_ = 0, otherLines_ = 0, firstOtherLine_ = 0;
};

}  // namespace vexlator::formats

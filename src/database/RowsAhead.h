// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/RowBuffer.h"
#include "util/ReadAhead.h"

#include <cstddef>
#include <span>
#include <string_view>
#include <vector>

namespace vexlator::database {

/// Rows copied from a RowBuffer, so that they stay valid when it moves on.
class RowBatch {
public:
    /// Replaces the contents by the next rows, about 256 KB. Returns false if these are the last. On an
    /// exception it holds the rows before the error.
    bool Fill(RowBuffer& rows);
    /// Takes the next row; false if there is none. The values are valid until the batch is filled again.
    bool Take(std::span<std::string_view> row);

private:
    void Append(std::string_view value);

    std::vector<char> bytes_;   ///< values in order, each after its length
    std::size_t rows_ = 0;      ///< number of remaining rows
    std::size_t position_ = 0;  ///< position of the first remaining row
};

/// The rows of a result, fetched by a thread of its own. During its lifetime no other code may use the
/// connection.
class RowsAhead {
public:
    /// @param rows must outlive this object, which empties it
    explicit RowsAhead(RowBuffer& rows);

    bool Next();
    /// The current row, valid until Next().
    Row Current() const { return values_; }

private:
    std::vector<std::string_view> values_;
    RowBatch* batch_ = nullptr;
    util::ReadAhead<RowBatch> batches_;
};

}  // namespace vexlator::database

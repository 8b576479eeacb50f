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

/// Rows copied out of a RowBuffer, so that they stay when it goes on.
class RowBatch {
public:
    /// Replaces what it holds by the next rows, some 256 KB of them. Returns false when these are the last.
    /// When it throws, it holds the rows before.
    bool Fill(RowBuffer& rows);
    /// Takes the next row out; false when there is none. The values live as long as the batch is not filled.
    bool Take(std::span<std::string_view> row);

private:
    void Append(std::string_view value);

    std::vector<char> bytes_;   ///< value after value, its length before it
    std::size_t rows_ = 0;      ///< that are left
    std::size_t position_ = 0;  ///< of the first that is left
};

/// The rows of a result, fetched by a thread of its own. While it lives, nobody else may use the connection.
class RowsAhead {
public:
    /// @param rows outlives this object, which empties it
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

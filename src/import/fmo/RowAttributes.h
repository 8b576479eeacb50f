// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "database/Statement.h"
#include "drawing/Drawing.h"

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::importer {

/// The columns of a query's rows, from one of them to the last, as text attributes with the columns' names.
class RowAttributes {
public:
    /// @param rows has been executed and must outlive this object
    /// @param columns names of all columns of `rows`
    RowAttributes(drawing::Drawing& drawing, const database::Statement& rows,
                  std::span<const std::string> columns, std::size_t firstColumn);

    /// Gives the last added entity the values of the current row.
    void AttachTo(drawing::Drawing& drawing);

private:
    const database::Statement& rows_;
    std::size_t firstColumn_;
    drawing::AttributeSet set_;
    std::string text_;
};

/// A column's value as text: "" for NULL; numbers without trailing zeros, so 2.0 reads 2; bytes as capital
/// hexadecimal digits. Valid until the next call with the same buffer.
std::string_view FieldValueText(const database::Statement& rows, std::size_t column, std::string& buffer);

}  // namespace vexlator::importer

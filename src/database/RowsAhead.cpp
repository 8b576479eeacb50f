// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/RowsAhead.h"

#include <cstring>

namespace vexlator::database {

namespace {

constexpr std::size_t fullSize = std::size_t{256} << 10;
constexpr std::size_t nullLength = std::string_view::npos;

}  // namespace

bool RowBatch::Fill(RowBuffer& rows) {
    constexpr std::size_t keptCapacity = 4 * fullSize;
    if (bytes_.capacity() > keptCapacity) bytes_ = {};
    bytes_.clear();
    rows_ = position_ = 0;
    for (; bytes_.size() < fullSize; ++rows_) {
        if (!rows.Next()) return false;
        for (std::string_view value : rows.Current()) Append(value);
    }
    return true;
}

void RowBatch::Append(std::string_view value) {
    std::size_t length = value.data() ? value.size() : nullLength;
    const char* bytes = reinterpret_cast<const char*>(&length);
    bytes_.insert(bytes_.end(), bytes, bytes + sizeof length);
    bytes_.insert(bytes_.end(), value.begin(), value.end());
}

bool RowBatch::Take(std::span<std::string_view> row) {
    if (rows_ == 0) return false;
    --rows_;
    for (std::string_view& value : row) {
        std::size_t length = 0;
        std::memcpy(&length, bytes_.data() + position_, sizeof length);
        position_ += sizeof length;
        value = {};
        if (length == nullLength) continue;
        value = {bytes_.data() + position_, length};
        position_ += length;
    }
    return true;
}

RowsAhead::RowsAhead(RowBuffer& rows)
    : values_(rows.ColumnCount()), batches_([&rows](RowBatch& batch) { return batch.Fill(rows); }) {}

bool RowsAhead::Next() {
    while (!batch_ || !batch_->Take(values_)) {
        batch_ = batches_.Next();
        if (!batch_) return false;
    }
    return true;
}

}  // namespace vexlator::database

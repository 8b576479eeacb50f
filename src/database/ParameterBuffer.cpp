// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "database/ParameterBuffer.h"

#include "util/Numbers.h"

#include <algorithm>
#include <string>
#include <type_traits>

namespace vexlator::database {

namespace {

template <typename T>
std::string_view BytesOf(const T& value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
}

/// Drivers treat a timestamp's fraction of a second differently; this text has none.
std::string TimestampText(const platform::DateTime& when) {
    return util::ZeroPadded(when.year, 4) + "-" + util::ZeroPadded(when.month, 2) + "-" +
           util::ZeroPadded(when.day, 2) + " " + util::ZeroPadded(when.hour, 2) + ":" +
           util::ZeroPadded(when.minute, 2) + ":" + util::ZeroPadded(when.second, 2);
}

}  // namespace

SQLRETURN ParameterBuffer::Set(SQLHANDLE statement, std::size_t index, const Value& value) {
    auto put = [&](const auto& v) -> SQLRETURN {
        using T = std::decay_t<decltype(v)>;
        if constexpr (std::is_same_v<T, std::nullptr_t>) {
            SQLRETURN result = Put(statement, index, type_, "");
            length_ = SQL_NULL_DATA;
            return result;
        } else if constexpr (std::is_same_v<T, std::string_view>) {
            return Put(statement, index, {SQL_C_CHAR, SQL_VARCHAR}, v);
        } else if constexpr (std::is_same_v<T, std::int64_t>) {
            return Put(statement, index, {SQL_C_SBIGINT, SQL_BIGINT}, BytesOf(v));
        } else if constexpr (std::is_same_v<T, double>) {
            return Put(statement, index, {SQL_C_DOUBLE, SQL_DOUBLE}, BytesOf(v));
        } else if constexpr (std::is_same_v<T, platform::DateTime>) {
            return Put(statement, index, {SQL_C_CHAR, SQL_TYPE_TIMESTAMP}, TimestampText(v));
        } else {
            return Put(statement, index, {SQL_C_BINARY, SQL_LONGVARBINARY}, v.bytes);
        }
    };
    return std::visit(put, value);
}

SQLRETURN ParameterBuffer::Put(SQLHANDLE statement, std::size_t index, Type type, std::string_view bytes) {
    // The SQLite driver keeps the length of the bytes at the time of binding.
    bool known =
        type == type_ && type.inMemory != SQL_C_BINARY && bytes.size() <= bytes_.size() && !bytes_.empty();
    if (bytes_.size() < bytes.size() || bytes_.empty())
        bytes_.resize(std::max<std::size_t>(64, bytes.size()));
    std::copy(bytes.begin(), bytes.end(), bytes_.begin());
    length_ = static_cast<SQLLEN>(bytes.size());
    if (known) return SQL_SUCCESS;
    type_ = type;
    constexpr SQLULEN timestampSize = 19;  // characters of 2024-03-05 14:07:00
    SQLULEN size = type.inDatabase == SQL_TYPE_TIMESTAMP ? timestampSize : bytes_.size();
    return SQLBindParameter(statement, static_cast<SQLUSMALLINT>(index + 1), SQL_PARAM_INPUT, type.inMemory,
                            type.inDatabase, size, 0, bytes_.data(), static_cast<SQLLEN>(bytes_.size()),
                            &length_);
}

}  // namespace vexlator::database

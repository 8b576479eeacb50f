// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <stdexcept>
#include <string>

namespace vexlator::database {

/// An error of a database or its driver: what() is the driver's own text.
class DatabaseError : public std::runtime_error {
public:
    DatabaseError(std::string state, const std::string& text, std::string query = "")
        : std::runtime_error(text), state_(std::move(state)), query_(std::move(query)) {}

    /// SQLSTATE, five characters, as in "08001" (no connection) or "HY000" (nothing more precise).
    const std::string& State() const { return state_; }
    /// The statement that failed; "" if no statement failed.
    const std::string& Query() const { return query_; }

private:
    std::string state_, query_;
};

}  // namespace vexlator::database

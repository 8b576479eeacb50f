// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace vexlator::util {

/// A list within a line for people: names the first few items and counts the others.
class ShortList {
public:
    explicit ShortList(std::size_t most) : most_(most) {}

    /// Ignores an item that is already in the list.
    void Add(const std::string& item);
    bool Empty() const { return items_.empty(); }
    /// As in "a, b and 3 more".
    std::string Text() const;

    /// A name from a file as a part of an item: its first 60 characters.
    static std::string Shortened(std::string_view name);

private:
    std::size_t most_;
    std::string text_;  ///< the named items
    std::unordered_set<std::string> items_;
};

}  // namespace vexlator::util

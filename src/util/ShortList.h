// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_set>

namespace vexlator::util {

/// A list within a line for people: the first few items, the others counted.
class ShortList {
public:
    explicit ShortList(std::size_t most) : most_(most) {}

    /// An item that is there already does not count again.
    void Add(const std::string& item);
    bool Empty() const { return items_.empty(); }
    /// As in "a, b and 3 more".
    std::string Text() const;

    /// A name of any origin as a part of an item: at most 60 characters of it.
    static std::string Shortened(std::string_view name);

private:
    std::size_t most_;
    std::string text_;  ///< the items that are named
    std::unordered_set<std::string> items_;
};

}  // namespace vexlator::util

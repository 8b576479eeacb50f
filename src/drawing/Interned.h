// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace vexlator::drawing {

/// Values shared by many entities. Each value is held once and identified by its index. `Hash` makes a
/// std::size_t of a value. Finding the index of a value takes constant time. The hash table, with eight to
/// sixteen bytes per value, is built at the first search.
template <typename T, typename Hash>
class Interned {
public:
    const std::vector<T>& All() const { return values_; }
    const T& operator[](std::size_t place) const { return values_[place]; }
    std::size_t Size() const { return values_.size(); }

    void Clear() {
        values_.clear();
        places_.clear();
    }
    /// Adds a value even if it exists already, because the indices are those of a file's table.
    void AddUnchecked(T value) {
        values_.push_back(std::move(value));
        places_.clear();
    }
    /// The index of a value, which is added if missing. Similar entities come in runs, so the last answer is
    /// tried first.
    std::uint32_t PlaceOf(const T& value) {
        if (last_ < values_.size() && values_[last_] == value) return last_;
        if (places_.size() < 2 * (values_.size() + 1)) Index();
        std::uint32_t& slot = SlotOf(value);
        if (slot == 0) {
            values_.push_back(value);
            slot = static_cast<std::uint32_t>(values_.size());
        }
        return last_ = slot - 1;
    }
    /// Changes every value. Two values may become equal.
    template <typename Change>
    void ChangeAll(Change change) {
        for (T& value : values_) change(value);
        places_.clear();
    }

private:
    void Index() {
        std::size_t size = 16;
        while (size < 4 * (values_.size() + 1)) size *= 2;
        places_.assign(size, 0);
        for (std::size_t i = 0; i < values_.size(); ++i) {
            std::uint32_t& slot = SlotOf(values_[i]);
            if (slot == 0) slot = static_cast<std::uint32_t>(i + 1);
        }
    }
    std::uint32_t& SlotOf(const T& value) {
        std::size_t mask = places_.size() - 1, at = Hash()(value) & mask;
        while (places_[at] != 0 && !(values_[places_[at] - 1] == value)) at = (at + 1) & mask;
        return places_[at];
    }

    std::vector<T> values_;
    std::vector<std::uint32_t>
        places_;              ///< a hash table: index plus 1, 0 for a free slot; its size is a power of two
    std::uint32_t last_ = 0;  ///< the last answer
};

}  // namespace vexlator::drawing

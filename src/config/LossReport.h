// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace vexlator::config {

/// Counts the values that an output could not hold, so that no loss is silent.
class LossReport {
public:
    enum class Kind {
        LeftOut,    ///< entities of a kind that the format cannot hold; the field names the kind
        Cut,        ///< values that are longer than their column
        NoColumn,   ///< values for which there is no column
        Broken,     ///< values that hold what separates fields or rows
        NotNumber,  ///< values that are no numbers in columns of numbers
        Replaced,   ///< characters that the encoding lacks
        NoRow       ///< features whose row of values the source lacks; the layer names the source's
    };
    void Count(Kind kind, std::string_view layer, std::string_view field, std::uint64_t values = 1);
    void Add(const LossReport& more);
    bool Empty() const { return counts_.empty(); }
    /// One line, as in "values cut: FENCE.NOTES 3, WALL.NAME 1; characters replaced: WALL.NAME 2"; "" if
    /// nothing was lost. For each kind it names the first few, with long names cut, and counts the others.
    std::string Line() const;

private:
    std::map<std::pair<Kind, std::string>, std::uint64_t> counts_;
};

}  // namespace vexlator::config

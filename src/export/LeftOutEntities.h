// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/Drawing.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace vexlator::exporter {

/// Counts the entities of a layer that an output cannot hold, by kind.
class LeftOutEntities {
public:
    void Add(drawing::Kind kind) { ++counts_[static_cast<std::size_t>(kind)]; }
    /// Adds them to the run's losses. Call it once.
    void Report(config::Run& run, std::string_view layer) const;

private:
    std::array<std::uint64_t, static_cast<std::size_t>(drawing::Kind::Other) + 1> counts_{};
};

}  // namespace vexlator::exporter

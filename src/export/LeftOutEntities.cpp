// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/LeftOutEntities.h"

namespace vexlator::exporter {

void LeftOutEntities::Report(config::Run& run, std::string_view layer) const {
    static constexpr std::array<std::string_view, std::tuple_size_v<decltype(counts_)>> names = {
        "point", "symbol", "polyline", "circle", "text", "arc", "line", "other"};
    for (std::size_t kind = 0; kind < counts_.size(); ++kind)
        run.Losses().Count(config::LossReport::Kind::LeftOut, layer, names[kind], counts_[kind]);
}

}  // namespace vexlator::exporter

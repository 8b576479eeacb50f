// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/LayerTurns.h"

namespace vexlator::exporter {

LayerTurns::LayerTurns(platform::OutputFile& file, std::string_view path,
                       const std::vector<ExportLayer>& layers)
    : file_(file), path_(path) {
    for (const ExportLayer& layer : layers) layers_.push_back({layer.entities});
}

platform::OutputFile& LayerTurns::Begin(std::size_t layer) {
    current_ = layer;
    if (layer == turn_) return file_;
    if (!aside_) aside_.emplace(path_);
    layers_[layer].aside.push_back({aside_->Size(), 0});
    return *aside_;
}

void LayerTurns::End(const LayerPart& part) {
    layers_[current_].entitiesLeft -= part.indexes.size();
    if (current_ != turn_) layers_[current_].aside.back().end = aside_->Size();
    while (turn_ < layers_.size() && layers_[turn_].entitiesLeft == 0) {
        if (++turn_ == layers_.size()) break;
        for (const Stretch& stretch : layers_[turn_].aside)
            file_.WriteFrom(*aside_, stretch.begin, stretch.end - stretch.begin);
    }
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/job/FeatureCloser.h"

#include <utility>

namespace vexlator::importer {

void FeatureCloser::Added(drawing::Entity polyline, std::string_view label) {
    if (indexed_) byLabel_[std::string(label)].polylines.push_back(polyline.index());
}

void FeatureCloser::IndexLabels() {
    if (std::exchange(indexed_, true)) return;
    drawing_.forEach([&](drawing::Entity entity) {
        if (entity.kindCode() == drawing::Kind::Polyline) Added(entity, entity.label());
    });
}

bool FeatureCloser::CloseAll(const std::string& label, bool fill) {
    IndexLabels();
    auto found = byLabel_.find(label);
    if (found == byLabel_.end()) return false;
    Labelled& labelled = found->second;
    if (labelled.filled != fill) labelled.closed = 0;
    for (; labelled.closed < labelled.polylines.size(); ++labelled.closed) {
        drawing::Entity polyline(drawing_, labelled.polylines[labelled.closed]);
        polyline.setClosed(true);
        polyline.setFilled(fill);
    }
    labelled.filled = fill;
    return true;
}

}  // namespace vexlator::importer

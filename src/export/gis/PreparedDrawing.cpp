// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/gis/PreparedDrawing.h"

#include "drawing/Drawing.h"

namespace vexlator::exporter {

PreparedDrawing::PreparedDrawing(const BegunExport& begun, std::string_view drawingPath)
    : path_(drawingPath) {
    if (!begun.photoPaths.AreChanged()) return;
    scratch_ = std::make_unique<platform::ScratchFolder>();
    path_ = scratch_->Path() + "/prepared.VDF";
    drawing::Drawing drawing;
    OpenWhole(begun, drawingPath, drawing);
    drawing.saveAs(path_);
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "export/LayerLoop.h"
#include "platform/ScratchFolder.h"

#include <memory>
#include <string>
#include <string_view>

namespace vexlator::exporter {

/// The drawing that another program exports: the drawing itself, or a copy in which photographs have the
/// names that the settings demand.
class PreparedDrawing {
public:
    /// @throws platform::ReadError, platform::WriteError
    PreparedDrawing(const BegunExport& begun, std::string_view drawingPath);
    const std::string& Path() const { return path_; }

private:
    std::unique_ptr<platform::ScratchFolder> scratch_;  ///< with the copy
    std::string path_;
};

}  // namespace vexlator::exporter

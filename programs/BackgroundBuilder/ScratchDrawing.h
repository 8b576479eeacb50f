// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "drawing/DrawingSink.h"
#include "platform/Files.h"

#include <string>
#include <string_view>

namespace vexlator::backgroundbuilder {

/// A drawing between the sources and their package, in the scratch folder; it goes with the object.
class ScratchDrawing {
public:
    /// Named after the package.
    ScratchDrawing(config::Run& run, std::string_view package);
    ~ScratchDrawing();
    ScratchDrawing(const ScratchDrawing&) = delete;
    ScratchDrawing& operator=(const ScratchDrawing&) = delete;

    drawing::DrawingSink& Sink() { return sink_; }
    /// Builds the package of what the sink has committed.
    void BuildPackage(std::string_view package);

private:
    config::Run& run_;
    platform::OutputFile mark_;  ///< never committed; no other run has its name
    std::string path_;
    drawing::DrawingSink sink_;
};

}  // namespace vexlator::backgroundbuilder

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "BackgroundBuilder/ScratchDrawing.h"

#include "background/builder/frmGRP.h"
#include "platform/Files.h"
#include "util/Paths.h"

namespace vexlator::backgroundbuilder {

namespace {

std::string PlaceFor(const config::Run& run, std::string_view package) {
    const std::string& folder = run.Settings().TempDirectory;
    platform::RequireFolder(folder);
    platform::RemoveLeftovers(folder);
    return util::JoinPath(folder, util::BaseNameOf(package));
}

}  // namespace

ScratchDrawing::ScratchDrawing(config::Run& run, std::string_view package)
    : run_(run), mark_(PlaceFor(run, package)), path_(mark_.TemporaryName() + ".VDF") {
    sink_.SetPath(path_);
}

ScratchDrawing::~ScratchDrawing() {
    platform::RemoveFile(path_);
}

void ScratchDrawing::BuildPackage(std::string_view package) {
    background::frmGRP(run_).Start(path_, package, "");
}

}  // namespace vexlator::backgroundbuilder

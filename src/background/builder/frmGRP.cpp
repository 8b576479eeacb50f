// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "background/builder/frmGRP.h"

#include "background/builder/BuildSettings.h"
#include "background/builder/EntityWalk.h"
#include "background/builder/FeatureHeaders.h"
#include "background/package/PackageWriter.h"
#include "config/Converter.h"
#include "config/OutsideProgram.h"
#include "config/Waiting.h"
#include "drawing/DrawingFile.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "ui/UserInterface.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <memory>
#include <string>

namespace vexlator::background {

namespace {

/// The index, and companion files with the package's name.
struct Target {
    std::string index, dxf;
};

Target TargetOf(std::string_view path) {
    std::string name = util::FileNameOf(path);
    if (name.find('.') != name.npos && !platform::FolderExists(path))
        return {std::string(path), util::ChangeExtension(path, "DXF")};
    return {util::JoinPath(path, name + ".GRP"), std::string(path) + ".DXF"};
}

}  // namespace

config::Outcome frmGRP::Start(std::string_view drawingPath, std::string_view targetPath,
                              std::string_view styleFile) {
    ui::UserInterface& ui = run_.Ui();
    std::unique_ptr<ui::FormView> view = ui.ShowForm("frmGRP");
    BuildSettings settings(run_, drawingPath, styleFile);
    Target target = TargetOf(targetPath);
    util::MakeFolder(util::FolderOf(target.index));
    if (settings.createDxf) ConvertVDFtoDXF(run_, drawingPath, target.dxf);
    drawing::DrawingFile drawing(drawingPath);
    ui.Settle(0.5);
    settings.ListOptimisedAttributes(drawing.Current());

    PackageWriter writer(target.index, ui, settings.memoryBytes);
    FeatureHeaders headers(run_, settings, drawing, writer);
    config::Outcome outcome{.target = target.index};
    outcome.features = EntityWalk(run_, settings, drawing, headers, writer, *view).Run();
    outcome.layers = headers.LayersMet();
    view->SetLabel("Completed!");
    ui.Settle(1);
    view->SetLabel("Building GRP");
    writer.Commit();
    ui.Settle(1);
    return outcome;
}

void ConvertVDFtoDXF(config::Run& run, std::string_view drawingPath, std::string_view dxfPath) {
    std::string converter = util::VectorDrawConverterPath(run.Settings().ProgramFolder);
    if (util::FileSize(converter) == 0) converter = config::FindSuiteProgram(run, config::converterProgram);
    if (converter.empty()) return run.Ui().ShowMessage("No VDCONV application located");
    platform::RemoveFile(dxfPath);
    // Question marks separate parameters: files, version, size and what to draw.
    config::OutsideProgram program(run, converter,
                                   "? \"" + platform::NativePath(drawingPath) + "\" ? \"" +
                                       platform::NativePath(dxfPath) +
                                       "\" ? 500 ? 1024 ? 768 ? 0 ? 0 ? 0 ? 1");
    if (program.WaitForEnd([&run] { run.Ui().Settle(0); }, [&] { return util::FileSize(dxfPath) > 0; }))
        return;
    run.Ui().Report(program.Problem());
    run.Ui().ShowMessage("No Converted File Located");
}

}  // namespace vexlator::background

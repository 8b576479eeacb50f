// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/cad/frmFromCAD.h"

#include "config/Converter.h"
#include "config/OutsideProgram.h"
#include "config/Waiting.h"
#include "drawing/Drawing.h"
#include "import/SourceFiles.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Programs.h"

namespace vexlator::importer {

namespace {

constexpr double metresOfFoot = 0.3048;

struct CadSettings {
    bool isInFeet = false;
};

using Keys = config::Keys<CadSettings>;

constexpr config::KeyOf<CadSettings> keys[] = {
    Keys::Flag("GRPin", "ft", &CadSettings::isInFeet,
               "CAD files that become background maps are in feet; their drawings get metres"),
};

}  // namespace

bool ConvertDWGtoVDF(config::Run& run, std::string_view cadFile, std::string_view drawingFile,
                     ui::FormView& view) {
    std::string converter = util::VectorDrawConverterPath(run.Settings().ProgramFolder);
    if (util::FileSize(converter) == 0) converter = config::FindSuiteProgram(run, config::converterProgram);
    if (converter.empty()) {
        run.Ui().ShowMessage("No VDCONV application located");
        return false;
    }
    platform::RemoveFile(drawingFile);
    // Question marks separate parameters: files, version, size and what to draw.
    config::OutsideProgram program(run, converter,
                                   "? \"" + platform::NativePath(cadFile) + "\" ? \"" +
                                       platform::NativePath(drawingFile) +
                                       "\" ? 500 ? 1024 ? 768 ? 0 ? 0 ? 0 ? 1");
    bool isDone =
        program.WaitForEnd([&view] { view.Progress(0, 0); }, [&] { return util::FileSize(drawingFile) > 0; });
    if (isDone) return true;
    run.Ui().Report(program.Problem());
    run.Ui().ShowMessage("No Converted File Located");
    return false;
}

config::Outcome frmFromCAD::Start(std::string_view sourcePath, std::string_view sourceFolder) {
    config::Outcome outcome{.target = DrawingPath(sourcePath, sourceFolder)};
    auto view = run_.Ui().ShowForm("frmFromCAD");
    drawing::Drawing drawing;
    if (ConvertDWGtoVDF(run_, sourcePath, outcome.target, *view))
        drawing.open(outcome.target);
    else
        outcome.status = config::Outcome::Status::Failed;
    if (config::ReadKeys<CadSettings>(run_.Installation(), keys).isInFeet) drawing.scale(metresOfFoot);
    drawing.saveAs(outcome.target);
    config::Pause(run_.Ui(), 1);
    outcome.layers = drawing.layerCount();
    outcome.features = drawing.entityCount();
    return outcome;
}

config::KeyList CadKeys() {
    return config::ListOf<CadSettings>(keys);
}

}  // namespace vexlator::importer

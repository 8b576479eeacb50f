// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/ConversionReport.h"
#include "config/Keys.h"
#include "config/Run.h"
#include "ui/UserInterface.h"

#include <functional>
#include <string>

namespace vexlator::corporate {

/// A program that writes drawings into a corporate GIS and reads them from there.
struct GisProgram {
    std::string path;     ///< path text below the program folder
    const char* missing;  ///< what the user learns when it is not there
};
/// By [ESRI] ARC10 of gv.ini.
GisProgram EsriProgram(const config::Run& run);
GisProgram CadcorpProgram();

/// [GENERAL] CorporateGIS of gv.ini, unchanged.
std::string CorporateGis(const config::Run& run);
/// Whether hand-offs are posted for a central service: [GENERAL] CommitCentrally.
bool IsCentral(const config::Run& run);
/// Whether the program tells details: [GENERAL] DEBUG.
bool AsksForDetails(const config::Run& run);
/// " INI ..." for Cadcorp programs, from WorkFlowSystem.
std::string CadcorpSettings(const config::Run& run);
/// Path text of a file in the folder of tasks.
std::string TaskFolderPath(const config::Run& run, const std::string& name);

/// "ACTION IMPORT ..." with the extent of the run.
std::string ImportArguments(const config::Run& run, const std::string& source, const std::string& drawing);

/// One hand-off, with the window that shows it.
class Handoff {
public:
    Handoff(config::Run& run, ui::FormView& view) : run_(run), view_(view) {}

    /// The path of the program; "" when there is none, which is told.
    std::string Find(const GisProgram& program);
    /// Runs a program until the log is there, or until `isDone`. Tells what it reports.
    /// @throws std::runtime_error: what ended it
    config::ConversionReport Launch(const std::string& program, const std::string& arguments,
                                    const std::string& log, const std::function<bool()>& isDone = {});
    /// Leaves a task for the central service, and waits for the log. @throws std::runtime_error
    config::ConversionReport Post(const std::string& task, const std::string& arguments,
                                  const std::string& log);
    /// The end of an export: two beeps and a second.
    void Finish();

private:
    config::ConversionReport Read(const std::string& log);

    config::Run& run_;
    ui::FormView& view_;
};

config::KeyList CorporateKeys();

}  // namespace vexlator::corporate

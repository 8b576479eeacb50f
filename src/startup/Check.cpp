// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Check.h"

#include "config/Run.h"
#include "coords/DrawingProjection.h"
#include "coords/frmLatLng.h"
#include "database/Drivers.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/Settings.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <exception>
#include <optional>
#include <string>
#include <vector>

namespace vexlator::startup {

namespace {

/// The lines of one report.
class Checker {
public:
    explicit Checker(ui::UserInterface& userInterface) : run_(installation_, userInterface) {
        LocateSettings(installation_);
        ReadSettings(installation_);
    }

    ExitStatus Check() {
        const config::SharedSettings& settings = run_.Settings();
        Line("installation", platform::NativePath(settings.ProgramFolder));
        File("settings", settings.IniFilePath);
        bool usable = Folder("ATPDirectory", settings.ATPDirectory, "required");
        usable &= Folder("SymbolsDirectory", settings.SymbolsDirectory, "required");
        Folder("FMODirectory", settings.FMODirectory, "no database definitions");
        Folder("WorkFlowDirectory", settings.WorkFlowDirectory, "drawings belong to no job");
        Folder("TempDirectory", settings.TempDirectory, "");
        if (usable) File("default symbol", util::JoinPath(settings.SymbolsDirectory, "DEFAULT.VDF"));
        ProjectionFile();
        WorkflowDatabase();
        Line("ODBC drivers", Listed(database::DriverNames()));
        Line("latitude/longitude", coords::frmLatLng(run_).Description());
        Line("result", usable ? "usable" : "not usable");
        return usable ? ExitStatus::Done : ExitStatus::NotUsable;
    }

private:
    void Line(std::string_view what, const std::string& state) {
        run_.Ui().Report(std::string(what) + ": " + state);
    }
    bool File(std::string_view what, std::string_view path) {
        bool present = util::FileSize(path) > 0;
        Line(what, platform::NativePath(path) + (present ? "" : " (missing)"));
        return present;
    }
    bool Folder(std::string_view key, const std::string& path, const std::string& whenUnset) {
        bool present = !path.empty() && platform::FolderExists(path);
        Line(key, path.empty() ? "not set (" + whenUnset + ")"
                               : platform::NativePath(path) + (present ? "" : " (missing)"));
        return present;
    }
    void ProjectionFile() {
        std::string name = run_.ReadIni("SHPout", "PRJ");
        std::string folder = util::JoinPath(run_.Settings().ProgramFolder, "Resources");
        auto defined = name.empty() ? coords::DrawingProjection(run_) : std::nullopt;
        if (!defined)
            File("projection file", util::JoinPath(folder, name.empty() ? "ESRI.PRJ" : name));
        else
            Line("projection file", defined->empty()
                                        ? "none ([GPS] TRANSFORMATION gives no coordinate system)"
                                        : "made from [GPS] TRANSFORMATION");
    }
    void WorkflowDatabase() {
        const std::string& folder = run_.Settings().WorkFlowSystem;
        if (!run_.ReadIni("WORKFLOW", "CONNECTION").empty())
            Line("workflow database", "a server ([WORKFLOW] CONNECTION)");
        else if (folder.empty())
            Line("workflow database", "not set (exports are not recorded)");
        else
            File("workflow database", util::JoinPath(folder, "WorkFlow.MDB"));
    }
    static std::string Listed(const std::vector<std::string>& names) {
        std::string text;
        for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
        return text.empty() ? "none found" : text;
    }

    config::Installation installation_;
    config::Run run_;
};

}  // namespace

ExitStatus CheckInstallation(ui::UserInterface& userInterface) {
    try {
        return Checker(userInterface).Check();
    } catch (const std::exception& error) {
        userInterface.ShowMessage(error.what());
        return ExitStatus::NotUsable;
    }
}

}  // namespace vexlator::startup

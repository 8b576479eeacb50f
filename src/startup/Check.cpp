// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/Check.h"

#include "config/Run.h"
#include "coords/DrawingProjection.h"
#include "coords/frmLatLng.h"
#include "database/Drivers.h"
#include "export/shapefile/ShapefileSettings.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/Findings.h"
#include "startup/Keys.h"
#include "startup/Settings.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/WorkflowDatabase.h"

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
        const config::KeyList keys = AllKeys();
        for (const config::Key& key : keys)
            if (key.type == config::Key::Type::Folder) Folder(key);
        bool usable = IsFolder(settings.ATPDirectory) && IsFolder(settings.SymbolsDirectory);
        if (usable) File("default symbol", util::JoinPath(settings.SymbolsDirectory, "DEFAULT.VDF"));
        ProjectionFile();
        WorkflowDatabase();
        Line("ODBC drivers", Listed(database::DriverNames()));
        Line("latitude/longitude", coords::frmLatLng(run_).Description());
        Findings(keys);
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
    static bool IsFolder(const std::string& path) { return !path.empty() && platform::FolderExists(path); }
    /// Folders that a new installation lacks have a line only if they are set.
    void Folder(const config::Key& key) {
        std::string path = run_.ReadIni(key.section, key.name);
        std::string fallback(key.fallback.empty() ? "required" : key.fallback);
        if (!path.empty())
            Line(key.name, platform::NativePath(path) + (IsFolder(path) ? "" : " (missing)"));
        else if (!key.initial.empty())
            Line(key.name, "not set (" + fallback + ")");
    }
    void Findings(const config::KeyList& keys) {
        const std::string& path = run_.Settings().IniFilePath;
        if (!platform::FileExists(path)) return;
        for (const Finding& finding : FindingsOf(platform::ReadWholeFile(path), keys))
            run_.Ui().Report(finding.text);
    }
    void ProjectionFile() {
        std::string name = exporter::ReadShapefileSettings(run_).projection;
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
        if (workflow::IsOnServer(run_))
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

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/MakeInstallation.h"

#include "drawing/Drawing.h"
#include "mapbook/Symbols.h"
#include "platform/CodePages.h"
#include "platform/Errors.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/InstallationFiles.h"
#include "startup/Settings.h"
#include "util/Paths.h"
#include "workflow/WorkflowDatabase.h"

#include <algorithm>
#include <exception>
#include <functional>
#include <string>

namespace vexlator::startup {

namespace {

/// Fills a folder. Existing files are not changed.
class Builder {
public:
    Builder(std::string folder, ui::UserInterface& userInterface)
        : folder_(std::move(folder)), ui_(userInterface) {}

    void Folder(std::string_view name) {
        // A file that has the name is in the way.
        Make(name, platform::RequireFolder, platform::FolderExists);
    }
    void File(std::string_view name, std::string_view content) {
        Make(name, [&](const std::string& path) { platform::ReplaceFile(path, content); });
    }
    void Make(std::string_view name, const std::function<void(const std::string& path)>& make,
              bool (*isThere)(std::string_view) = IsThere) {
        std::string path = name.empty() ? folder_ : util::JoinPath(folder_, name);
        bool present = isThere(path);
        if (!present) make(path);
        ui_.Report((present ? "kept " : "made ") + platform::NativePath(path));
    }

private:
    static bool IsThere(std::string_view path) { return !platform::FindExisting(path).empty(); }

    std::string folder_;
    ui::UserInterface& ui_;
};

/// The symbol for codes without a symbol of their own: a circle with a dot, one unit wide.
void MakeDefaultSymbol(const std::string& path) {
    drawing::Drawing symbol;
    symbol.addCircle({0, 0, 0}, 0.5);
    symbol.addPoint({0, 0, 0});
    symbol.saveAs(path);
}

void MakeSymbol(const std::string& path, void (*draw)(drawing::Drawing&)) {
    drawing::Drawing symbol;
    draw(symbol);
    symbol.saveAs(path);
}

/// The folder in the form for lines of gv.ini. @throws WriteError if they cannot hold it.
std::string FolderForSettings(std::string_view folder) {
    std::string native = platform::NativePath(platform::AbsolutePath(folder));
    while (native.ends_with('/') && native.size() > 1) native.pop_back();
    bool broken = std::ranges::any_of(native, [](char c) { return c >= 0 && c < ' '; });
    if (broken || !platform::IsUtf8(native))
        throw platform::WriteError(native, "settings cannot hold the characters of this folder name");
    return native;
}

void Fill(const std::string& folder, ui::UserInterface& userInterface) {
    Builder builder(folder, userInterface);
    for (std::string_view name :
         {"", "ATP", "LocalATPs", "Symbols", "FMO", "Jobs", "WorkFlow", "Temp", "Resources"})
        builder.Folder(name);
    for (const InstallationFile& file : DefaultFiles()) builder.File(file.path, file.content);
    builder.Make("Symbols/DEFAULT.VDF", MakeDefaultSymbol);
    builder.Make("Symbols/Arrow.VDF", [](const std::string& path) { MakeSymbol(path, mapbook::DrawArrow); });
    builder.Make("Symbols/Tadpole.VDF",
                 [](const std::string& path) { MakeSymbol(path, mapbook::DrawTadpole); });
    builder.File("gv.ini", DefaultIni(folder));
    // Last, because conversions work without it if no database driver is installed.
    builder.Make("WorkFlow/WorkFlow.MDB", workflow::CreateWorkflowDatabase);
}

/// An installation that cannot be remembered still works.
void Remember(const std::string& folder, ui::UserInterface& userInterface) {
    try {
        RememberInstallation(folder);
        userInterface.Report("ready: vexlator \"IMPORT FILE.SHP\", in every terminal of yours");
    } catch (const platform::WriteError& error) {
        userInterface.Report("ready: VEXLATOR_HOME=" + folder + " vexlator \"IMPORT FILE.SHP\"");
        userInterface.Report("vexlator would use it by default if this could be written: " +
                             std::string(error.what()));
    }
}

}  // namespace

ExitStatus MakeInstallation(std::string_view folder, ui::UserInterface& userInterface) {
    try {
        std::string path = FolderForSettings(folder);
        Fill(path, userInterface);
        Remember(path, userInterface);
        return ExitStatus::Done;
    } catch (const std::exception& error) {
        userInterface.ShowMessage(error.what());
        return ExitStatus::Failed;
    }
}

}  // namespace vexlator::startup

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "startup/go/SourceConversion.h"

#include "background/builder/frmGRP.h"
#include "config/OutsideProgram.h"
#include "config/Waiting.h"
#include "import/SourceFiles.h"
#include "import/cad/frmFromCAD.h"
#include "platform/AsciiCase.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "startup/go/GoFlow.h"
#include "startup/go/SourceKinds.h"
#include "startup/go/frmBKGND.h"
#include "util/Files.h"
#include "util/Paths.h"

namespace vexlator::startup {

namespace {

struct BuilderSettings {
    std::string gridSize = "1000", maxEntities = "100000", version;
};

using Keys = config::Keys<BuilderSettings>;

constexpr config::KeyOf<BuilderSettings> keys[] = {
    Keys::Text("GRP", "GRIDSIZE", &BuilderSettings::gridSize,
               "grid interval that the backdrop builder tiles by, in the units of the map", "1000"),
    Keys::Text("GRP", "MAXENTITIES", &BuilderSettings::maxEntities,
               "largest number of entities per drawing of the backdrop builder", "100000"),
    Keys::Text("ESRI", "ARC10", &BuilderSettings::version,
               "ESRI version: 0 none, 1 version 10, 2 version 10.2, 5 version 10.5", "none"),
};

/// The sub-folder of the program folder that holds the backdrop builder of an ESRI version; "" for none.
std::string BuilderFolder(std::string_view version) {
    if (version == "0") return "ESRIbkgnd";
    if (version == "1") return "ESRIbkgnd10";
    if (version == "2") return "ESRIbkgnd10.2";
    return version == "5" ? "ESRIbkgnd10.5" : "";
}

std::string BuilderArguments(const std::string& source, const std::string& target,
                             const BuilderSettings& settings, SourceConversion::BuilderMode mode) {
    std::string text = "MXD \"" + platform::NativePath(source);
    std::string path = platform::NativePath(target);
    if (mode == SourceConversion::BuilderMode::Drawing)
        text += "\" VDF \"" + path + "\"";
    else
        text += "\" GRP \"" + path + "\" GRID " + settings.gridSize + " MAXENTITIES " + settings.maxEntities;
    return text + (KindOf(source).code == "SWD" ? " MODE CADCORP" : " MODE ESRI");
}

/// A file that makes room for a new one, and comes back when there is none in the end.
class SetAside {
public:
    explicit SetAside(std::string path) : path_(std::move(path)), aside_(path_ + ".before") {
        platform::RenameFile(path_, aside_);
    }
    ~SetAside() {
        if (!isDone_) platform::RenameFile(aside_, path_);
    }
    SetAside(const SetAside&) = delete;
    SetAside& operator=(const SetAside&) = delete;
    void Drop() {
        isDone_ = true;
        platform::RemoveFile(aside_);
    }

private:
    std::string path_, aside_;
    bool isDone_ = false;
};

}  // namespace

SourceConversion::SourceConversion(config::Run& run, const Conversions& conversions,
                                   const SelectionSettings& choices)
    : run_(run), conversions_(conversions), choices_(choices), view_(run.Ui().ShowForm("frmZSelect")) {}

std::uint64_t SourceConversion::Convert(const std::string& source, const std::string& package,
                                        bool isOneOfList) {
    switch (KindOf(source).treatment) {
        case Treatment::ByDrawing:
        case Treatment::ByGisProgram:
            return BuildGrpFromSource(source, package);
        case Treatment::Images:
        case Treatment::Topography:
            BuildBackground(source, package, choices_.chkAll && !isOneOfList);
            return 0;
        case Treatment::MapSheet:
            ConvertMapSheet(source, package);
            return 0;
        case Treatment::Nothing:
            break;
    }
    throw NotConverted("no package is made of " + platform::NativePath(source));
}

std::uint64_t SourceConversion::BuildGrpFromSource(const std::string& source, const std::string& package) {
    std::string drawing = ConvertGIStoVDF(source);
    if (drawing.empty()) throw NotConverted("no drawing came of " + platform::NativePath(source), true);
    platform::RequireFolder(util::FolderOf(package));
    platform::RemoveLeftovers(util::FolderOf(package));
    view_->SetCaption("GRP Write");
    view_->SetLabel(platform::NativePath(drawing) + "Loading");
    config::Outcome outcome = background::frmGRP(run_).Start(drawing, package, choices_.txtStyling);
    config::Pause(run_.Ui(), 0.5);
    if (outcome.status != config::Outcome::Status::Done)
        throw NotConverted("no package came of " + platform::NativePath(drawing), true);
    return outcome.features;
}

std::string SourceConversion::ConvertGIStoVDF(const std::string& source) {
    std::string drawing = importer::DrawingPath(source, run_.Settings().TempDirectory);
    view_->SetCaption("VDF Write");
    const SourceKind& kind = KindOf(source);
    if (kind.code == "VDF")
        drawing = source;
    else if (kind.treatment == Treatment::ByGisProgram)
        LaunchBackdropBuilder(source, drawing, BuilderMode::Drawing);
    else
        drawing = ImportToDrawing(source, drawing);
    return util::FileSize(drawing) > 0 ? drawing : "";
}

/// Returns the drawing, "" when the source could not be read.
std::string SourceConversion::ImportToDrawing(const std::string& source, const std::string& drawing) {
    const std::string& folder = run_.Settings().TempDirectory;
    std::string code = platform::UpperAscii(util::ExtensionOf(source));
    // An import could add to what an earlier run left here, or leave it.
    platform::RemoveFile(drawing);
    bool isCad = code == "DWG" || code == "DXF" || code == "DGN";
    const ImportRow* row = conversions_.FindImport(code);
    if (!isCad && !row) throw NotConverted("nothing imports " + code + " files");
    config::Outcome outcome = isCad ? importer::frmFromCAD(run_).Start(source, folder)
                                    : row->call(run_, {code, source, folder, ""});
    return outcome.status == config::Outcome::Status::Done ? drawing : "";
}

void SourceConversion::LaunchBackdropBuilder(const std::string& source, const std::string& target,
                                             BuilderMode mode) {
    auto settings = config::ReadKeys<BuilderSettings>(run_.Installation(), keys);
    std::string folder = BuilderFolder(settings.version);
    std::string name = "EsriBackdropBuilder.exe",
                program = folder.empty() ? name : util::JoinPath(folder, name);
    std::string found = folder.empty() ? "" : config::FindSuiteProgram(run_, program);
    if (found.empty()) {
        if (folder.empty())
            run_.Ui().Report("[ESRI] ARC10 of gv.ini names no version of the backdrop builder: 0, 1, 2 or 5");
        std::string path = util::JoinPath(run_.Settings().ProgramFolder, program);
        throw NotConverted(platform::NativePath(path) + "\r\nESRI Bkgnd App Missing");
    }
    std::string log = util::ChangeExtension(target, "LOG");
    platform::RemoveFile(log);
    SetAside before(target);
    view_->SetCaption(KindOf(source).code == "SWD" ? "CadCorp Read.." : "ESRI Read..");
    config::OutsideProgram builder(run_, found, BuilderArguments(source, target, settings, mode));
    bool isDone =
        builder.WaitFor([&log] { return util::FileSize(log) > 0; }, [this] { view_->Progress(0, 0); });
    if (!isDone) throw NotConverted(builder.Problem());
    before.Drop();
}

void SourceConversion::BuildBackground(const std::string& source, const std::string& package, bool all) {
    view_->SetLabel(platform::NativePath(source));
    std::string problem =
        frmBKGND(run_).GoNow(source, package, all, choices_.chkApplyMMCOU, [this] { view_->Progress(0, 0); });
    if (KindOf(source).treatment != Treatment::Topography)
        util::DeleteFiles(util::JoinPath(util::FolderOf(package), "*.BME"));
    if (!problem.empty()) throw NotConverted(problem);
}

config::KeyList GoKeys() {
    config::KeyList list = config::ListOf<BuilderSettings>(keys);
    for (const config::KeyList& more : {SelectionKeys(), config::OutsideProgramKeys(), BackgroundLaunchKeys(),
                                        TargetKeys(), MapSheetKeys(), importer::CadKeys()})
        list.insert(list.end(), more.begin(), more.end());
    return list;
}

}  // namespace vexlator::startup

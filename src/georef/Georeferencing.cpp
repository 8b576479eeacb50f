// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "georef/Georeferencing.h"

#include "config/OutsideProgram.h"
#include "formats/worldfile/WorldFile.h"
#include "georef/GroundConversion.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <algorithm>

namespace vexlator::georef {

namespace {

constexpr const char* resultName = "bkg.jpg";
constexpr const char* failed = "Image Manipulation Failed";

/// The first of an image's world files; "": there is none.
std::string ExistingWorldFile(const std::string& image) {
    std::vector<std::string> names = formats::WorldFileNames(image);
    auto found = std::find_if(names.begin(), names.end(),
                              [](const std::string& name) { return platform::FileExists(name); });
    return found == names.end() ? "" : *found;
}

std::string FolderForTiles(const std::string& image) {
    return util::JoinPath(util::FolderOf(image), util::BaseNameOf(image) + "_files");
}

/// The folder for an image of its own, cleared if that is wished.
std::string PrepareFolder(config::Run& run, const std::string& image) {
    std::string folder = FolderForTiles(image);
    platform::RequireFolder(folder);
    if (run.Ui().AskYesNo("Clear Target Folder")) util::DeleteFiles(util::JoinPath(folder, "*"));
    return folder;
}

/// Where a world file alone is made. A file of the result's name that is there already is not to be replaced.
std::string FolderForWorldFile(const std::string& image) {
    std::string folder = util::FolderOf(image);
    if (!platform::FileExists(util::JoinPath(folder, resultName))) return folder;
    platform::RequireFolder(FolderForTiles(image));
    return FolderForTiles(image);
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::string ArgumentsFor(const std::string& image, const std::string& target, bool carves) {
    return "GEOREF " + Quoted(GeorefFilePath(image)) + " Source " + Quoted(image) + " target " +
           Quoted(target) + (carves ? " CARVE 400" : "") + R"( debugfile "c:\temp\KellLog.txt")";
}

/// Runs the helper program until its log is there. False when it failed, and everything has been said.
bool Manipulate(config::Run& run, const std::string& image, const std::string& target, bool carves) {
    std::string program = config::FindSuiteProgram(run, "PDF\\MakeWorldFile.exe");
    if (program.empty()) {
        run.Ui().ShowMessage("MakeWorldFile.exe Not Found");
        return false;
    }
    std::string reason = "a path with a quotation mark cannot be handed over: " + platform::NativePath(image);
    if (image.find('"') == std::string::npos) {
        std::string log = util::JoinPath(target, "Log.txt");
        platform::RemoveFile(log);
        auto view = run.Ui().ShowForm("frmGeoRef");
        config::OutsideProgram maker(run, program, ArgumentsFor(image, target, carves));
        bool isDone = maker.WaitFor([&] { return platform::FileExists(log); }, [&] { view->Progress(0, 0); });
        reason = isDone ? util::ReadFirstLine(log) : maker.Problem();
    }
    if (reason == "OK") return true;
    run.Ui().Report(reason);
    run.Ui().ShowMessage(failed);
    return false;
}

/// Moves the result's world file beside an image. Returns its new path; "" when it could not be moved.
std::string TakeWorldFile(const std::string& result, const std::string& image) {
    std::string made = ExistingWorldFile(result), path = formats::WorldFilePath(image);
    return !made.empty() && util::MoveFile(made, path) ? path : "";
}

std::string MakeWorldFileAlone(config::Run& run, const std::string& image) {
    std::string folder = FolderForWorldFile(image), result = util::JoinPath(folder, resultName);
    if (!Manipulate(run, image, folder, false)) return "";
    std::string worldFile = TakeWorldFile(result, image);
    platform::RemoveFile(result);
    if (worldFile.empty()) run.Ui().ShowMessage(failed);
    return worldFile;
}

void Rotate(config::Run& run, const std::string& image, GeorefOutcome& outcome) {
    std::string folder = PrepareFolder(run, image), result = util::JoinPath(folder, resultName);
    if (!Manipulate(run, image, folder, false)) return;
    std::string rotated = util::JoinPath(util::FolderOf(image), util::BaseNameOf(image) + "_R.JPG");
    if (util::MoveFile(result, rotated)) outcome.worldFile = TakeWorldFile(result, rotated);
    if (outcome.worldFile.empty()) return run.Ui().ShowMessage(failed);
    if (run.Ui().AskYesNo(platform::NativePath(rotated) + "\r\nre-load newly rotated image"))
        outcome.rotatedImage = rotated;
}

std::size_t CountForFit(const PointEntries& entries) {
    auto end = entries.begin() + static_cast<std::ptrdiff_t>(CountComplete(entries));
    return static_cast<std::size_t>(
        std::count_if(entries.begin(), end, [](const PointEntry& entry) { return !entry.isLeftOut; }));
}

/// Says so when some have no place there.
PointEntries InGrid(config::Run& run, PointEntries points) {
    coords::frmLatLng grid(run);
    std::size_t converted = ConvertGroundToGrid(points, grid);
    std::size_t count = CountForFit(points);
    if (converted < count)
        run.Ui().ShowMessage(std::to_string(count - converted) + " of " + std::to_string(count) +
                             " control points have no place in the selected coordinate system");
    return points;
}

GeorefFile Sized(const ImageOnDisk& image, GeorefFile file) {
    file.width = image.width;
    file.height = image.height;
    return file;
}

std::vector<std::string> Tiles(const std::string& folder) {
    std::vector<std::string> files = platform::ListFiles(folder);
    std::erase_if(files, [](const std::string& name) { return !util::MatchesPattern(name, "*.jpg"); });
    return files;
}

}  // namespace

GeorefOutcome Georeference(config::Run& run, const ImageOnDisk& image, const GeorefFile& file) {
    GeorefOutcome outcome;
    WriteGeorefFile(GeorefFilePath(image.path), Sized(image, file));
    std::size_t count = CountForFit(file.points);
    if (count < 2) {
        run.Ui().ShowMessage("Requires at least 2 Control Points");
        return outcome;
    }
    if (AreDegrees(file.points) && run.Ui().AskYesNo("Convert Latlngs to Selected Coordinate System?")) {
        outcome.converted = InGrid(run, file.points);
        return outcome;
    }
    if (file.order == Fit::Order::Second && !file.rotate) {
        run.Ui().ShowMessage("A fit of second order bends the image: rotate it, or use a fit of first order");
        return outcome;
    }
    if (!run.Ui().AskYesNo("Continue with Georeferencing based on " + std::to_string(count) + " points?"))
        return outcome;
    if (file.rotate)
        Rotate(run, image.path, outcome);
    else
        outcome.worldFile = MakeWorldFileAlone(run, image.path);
    return outcome;
}

std::string Carve(config::Run& run, const ImageOnDisk& image, const GeorefFile& file) {
    WriteGeorefFileForCarving(GeorefFilePath(image.path), Sized(image, file));
    if (ExistingWorldFile(image.path).empty()) {
        run.Ui().ShowMessage("No World File!");
        return "";
    }
    std::string folder = PrepareFolder(run, image.path);
    if (!Manipulate(run, image.path, folder, true)) return "";
    std::vector<std::string> tiles = Tiles(folder);
    run.Ui().ShowMessage(util::BaseNameOf(image.path) + " Split " + std::to_string(tiles.size()) +
                         " Segments");
    return tiles.empty() ? "" : util::JoinPath(folder, tiles.front());
}

void ProjectDegrees(config::Run& run, const ImageOnDisk& image) {
    std::string source = DegreesWorldFilePath(image.path), target = formats::WorldFilePath(image.path);
    if (!platform::FileExists(source)) return;
    formats::WorldFile degrees = formats::ReadWorldFile(source);
    coords::frmLatLng grid(run);
    std::optional<formats::WorldFile> terms = ProjectWorldFile(degrees, image.width, image.height, grid);
    if (!terms)
        throw platform::ReadError(platform::NativePath(source), "",
                                  "a corner of the image has no place in the selected grid");
    std::string text = formats::WorldFileText(*terms);
    bool replaces = platform::FileExists(target) && platform::ReadWholeFile(target) != text;
    if (replaces && !run.Ui().AskYesNo(platform::NativePath(target) + " says otherwise than " +
                                       util::FileNameOf(source) + "\r\nReplace it?"))
        return;
    platform::ReplaceFile(target, text);
    run.Ui().ShowMessage("Projected World File Created!");
}

}  // namespace vexlator::georef

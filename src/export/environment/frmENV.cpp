// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/environment/frmENV.h"

#include "export/LayerLoop.h"
#include "export/environment/SurveyFeatures.h"
#include "platform/OutputSet.h"
#include "platform/Paths.h"
#include "util/Counted.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <deque>
#include <string>
#include <vector>

namespace vexlator::exporter {

namespace {

struct EnvironmentSettings {
    std::string photoFolder;
};

using Keys = config::Keys<EnvironmentSettings>;

constexpr config::KeyOf<EnvironmentSettings> keys[] = {
    Keys::Folder("GENERAL", "JPGFolder", &EnvironmentSettings::photoFolder,
                 "folder of the photographs in pages of environmental surveys",
                 "the folder of the export, to which the job's photographs are copied"),
};

SurveyPhotos PhotosFor(const config::Run& run, std::string_view targetPath) {
    std::string folder = config::ReadKeys<EnvironmentSettings>(run.Installation(), keys).photoFolder;
    return {PhotoSource(folder.empty() ? targetPath : folder),
            platform::NativePath(platform::AbsolutePath(targetPath))};
}

}  // namespace

config::Outcome frmENV::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmENV", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    SurveyPhotos photos = PhotosFor(run_, targetPath);
    platform::OutputSet files;
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Export);
    std::deque<SurveyFeatures> pages;
    std::vector<std::string> paths;
    for (const ExportLayer& layer : layers) {
        paths.push_back(util::JoinPath(targetPath, layer.fileName + ".html"));
        pages.emplace_back(run_, layer, util::BaseNameOf(drawingPath), photos, files.Add(paths.back()));
    }
    WriteLayers(
        run_, begun, layers, [&](std::size_t layer, const LayerPart& part) { pages[layer].Write(part); },
        [&](std::size_t layer) { return pages[layer].Finish(); });
    if (photos.missing > 0)
        run_.Ui().Report(util::Counted(photos.missing, "photograph") +
                         " not in the pages, because it is missing or neither JPEG nor BMP");
    files.Commit();
    if (run_.Settings().AutoLaunchExport)
        for (const std::string& path : paths) util::OpenDocument(path);
    return begun.outcome;
}

config::KeyList EnvironmentKeys() {
    return config::ListOf<EnvironmentSettings>(keys);
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/kml/frmKML.h"

#include "config/Waiting.h"
#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/LayerTurns.h"
#include "export/kml/KmlLayer.h"
#include "export/kml/Thumbnails.h"
#include "export/photos/PhotoNames.h"
#include "formats/kml/KmlWriter.h"
#include "platform/Files.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "util/Paths.h"
#include "util/Programs.h"

#include <deque>
#include <string>
#include <vector>

namespace vexlator::exporter {

namespace {

std::string WithSlash(std::string text) {
    if (!text.empty() && !text.ends_with('/')) text += '/';
    return text;
}

/// The values in gv.ini: whether photographs are on the web, and at which address.
struct WebSettings {
    bool web = false;
    std::string base, company;
};

using Keys = config::Keys<WebSettings>;

constexpr config::KeyOf<WebSettings> keys[] = {
    Keys::Text("KML", "WebBase", &WebSettings::base,
               "web address of the published photographs. Used with GoogleMaps on. Company names the folder "
               "below this address",
               "addresses relative to the KML file"),
    Keys::Text("GENERAL", "Company", &WebSettings::company, "company name in KML exports", "none"),
    Keys::Flag("PHOTO", "GoogleMaps", &WebSettings::web, "KML exports link photographs for web maps"),
};

KmlSettings ReadSettings(const config::Run& run, std::string_view targetPath) {
    auto ini = config::ReadKeys<WebSettings>(run.Installation(), keys);
    KmlSettings settings;
    settings.folder = platform::NativePath(platform::AbsolutePath(targetPath));
    settings.web = ini.web;
    settings.photoAddress = WithSlash(EncodedAddress(ini.base)) + WithSlash(EncodedPath(ini.company));
    return settings;
}

}  // namespace

config::Outcome frmKML::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport begun = BeginExport(run_, "frmKML", drawingPath, targetPath);
    if (begun.IsStopped()) return begun.outcome;
    std::string name = util::BaseNameOf(drawingPath);
    begun.outcome.target = util::JoinPath(targetPath, name + ".KML");
    KmlSettings settings = ReadSettings(run_, targetPath);
    if (settings.web) MakeThumbnails(run_, targetPath);
    if (!WriteFile(begun, settings, name)) return begun.outcome;
    if (run_.Settings().AutoLaunchExport) Launch(settings.web, begun.outcome.target);
    config::Pause(run_.Ui(), 1);
    return begun.outcome;
}

bool frmKML::WriteFile(BegunExport& begun, const KmlSettings& settings, const std::string& name) {
    coords::frmLatLng converter(run_);
    std::vector<ExportLayer> layers = FindLayers(begun, LayerZero::Skip);
    platform::OutputFile file(begun.outcome.target);
    formats::KmlWriter writer(file, name, converter.HeightDecimals());
    LayerTurns turns(file, begun.outcome.target, layers);
    std::deque<KmlLayer> placemarks;
    for (const ExportLayer& layer : layers) placemarks.emplace_back(run_, settings, converter, layer, writer);
    WriteLayers(
        run_, begun, layers,
        [&](std::size_t layer, const LayerPart& part) {
            writer.GoOnIn(turns.Begin(layer));
            placemarks[layer].Write(part);
            turns.End(part);
        },
        [&](std::size_t layer) { return placemarks[layer].Finish(); });
    writer.GoOnIn(file);
    if (begun.outcome.features > 0 && writer.Geometries() == 0) {
        run_.Ui().ShowMessage(platform::NativePath(begun.outcome.target) +
                              ": not written, because none of its placemarks has a position");
        begun.outcome.status = config::Outcome::Status::Failed;
        return false;
    }
    writer.Finish();
    file.Commit();
    return true;
}

void frmKML::Launch(bool web, std::string_view kmlPath) try {
    bool publish = web && !run_.Options().quiet && run_.Ui().AskYesNo("Publish files on web now?");
    if (publish)
        Publish(kmlPath);
    else
        util::OpenDocument(kmlPath);
} catch (const platform::Stopped&) {
    // The file is in place. A signal now only prevents its display.
}

void frmKML::Publish(std::string_view kmlPath) {
    std::string program = util::JoinPath(run_.Settings().ConfigFolder, "gvSync.exe");
    std::string command =
        "\"" + program + "\" /FTPkml \"" + platform::NativePath(platform::AbsolutePath(kmlPath)) + "\"";
    if (config::RunAndWait(command, run_.Ui()) < 0)
        run_.Ui().ShowMessage(platform::NativePath(program) + ": cannot be started");
}

config::KeyList KmlKeys() {
    return config::ListOf<WebSettings>(keys);
}

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/kml/frmKML.h"

#include "coords/frmLatLng.h"
#include "export/LayerLoop.h"
#include "export/LayerTurns.h"
#include "export/kml/KmlLayer.h"
#include "export/kml/PhotoNames.h"
#include "export/kml/Thumbnails.h"
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

KmlSettings ReadSettings(const config::Session& session, std::string_view targetPath) {
    KmlSettings settings;
    settings.folder = platform::NativePath(platform::AbsolutePath(targetPath));
    settings.web = session.ReadIniFlag("PHOTO", "GoogleMaps");
    settings.photoAddress = WithSlash(EncodedAddress(session.ReadIni("KML", "WebBase"))) +
                            WithSlash(EncodedPath(session.ReadIni("GENERAL", "Company")));
    return settings;
}

}  // namespace

config::Outcome frmKML::Start(std::string_view drawingPath, std::string_view targetPath) {
    BegunExport run = BeginExport(session_, "frmKML", drawingPath, targetPath);
    if (run.IsStopped()) return run.outcome;
    std::string name = util::BaseNameOf(drawingPath);
    run.outcome.target = util::JoinPath(targetPath, name + ".KML");
    KmlSettings settings = ReadSettings(session_, targetPath);
    if (settings.web) MakeThumbnails(session_, targetPath);
    coords::frmLatLng converter(session_);
    std::vector<ExportLayer> layers = FindLayers(run, LayerZero::Skip);
    platform::OutputFile file(run.outcome.target);
    formats::KmlWriter writer(file, name, converter.HeightDecimals());
    LayerTurns turns(file, run.outcome.target, layers);
    std::deque<KmlLayer> placemarks;
    for (const ExportLayer& layer : layers)
        placemarks.emplace_back(session_, settings, converter, layer, writer);
    WriteLayers(
        session_, run, layers,
        [&](std::size_t layer, const LayerPart& part) {
            writer.GoOnIn(turns.Begin(layer));
            placemarks[layer].Write(part);
            turns.End(part);
        },
        [&](std::size_t layer) { return placemarks[layer].Finish(); });
    writer.GoOnIn(file);
    if (run.outcome.features > 0 && writer.Geometries() == 0) {
        session_.Ui().ShowMessage(platform::NativePath(run.outcome.target) +
                                  ": not written, because none of its placemarks would have a place");
        run.outcome.status = config::Outcome::Status::Failed;
        return run.outcome;
    }
    writer.Finish();
    file.Commit();
    if (session_.Settings().AutoLaunchExport) Launch(settings.web, run.outcome.target);
    util::Pause(session_.Ui(), 1);
    return run.outcome;
}

void frmKML::Launch(bool web, std::string_view kmlPath) try {
    bool publish = web && !session_.Settings().Quiet && session_.Ui().AskYesNo("Publish files on web now?");
    if (publish)
        Publish(kmlPath);
    else
        util::OpenDocument(kmlPath);
} catch (const platform::Stopped&) {
    // The file is in place: a signal now only keeps it from being shown.
}

void frmKML::Publish(std::string_view kmlPath) {
    std::string program = util::JoinPath(session_.Settings().ConfigFolder, "gvSync.exe");
    std::string command =
        "\"" + program + "\" /FTPkml \"" + platform::NativePath(platform::AbsolutePath(kmlPath)) + "\"";
    if (util::RunAndWait(command, session_.Ui()) < 0)
        session_.Ui().ShowMessage(platform::NativePath(program) + ": cannot be started");
}

}  // namespace vexlator::exporter

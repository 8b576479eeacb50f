// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/frmFromGML.h"

#include "coords/AxisCount.h"
#include "coords/SourceSystem.h"
#include "formats/SourceText.h"
#include "formats/gml/GmlReader.h"
#include "import/SourceFiles.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>

namespace vexlator::importer {

namespace {

struct IniOptions {
    std::string fullRings;
    int megabytes = 0;
};

using Keys = config::Keys<IniOptions>;

constexpr config::KeyOf<IniOptions> keys[] = {
    Keys::Text("GML", "FullRings", &IniOptions::fullRings,
               "1: GML imports keep every ring and part of a feature; 0: only the one that is read last",
               "1, but 0 for files of FME translators with one element a line"),
    Keys::Number("GML", "MaxMB", &IniOptions::megabytes,
                 "most megabytes that a compressed GML file may unpack to; 0 stands for the default", "16384",
                 0, 1 << 30),
};

formats::GmlOptions OptionsOf(const config::Run& run) {
    auto ini = config::ReadKeys<IniOptions>(run.Installation(), keys);
    formats::GmlOptions options;
    options.axisCount = coords::AxisCount;
    if (!ini.fullRings.empty()) options.fullRings = ini.fullRings == "1";
    if (ini.megabytes > 0) options.mostUnpacked = static_cast<std::uint64_t>(ini.megabytes) << 20;
    return options;
}

}  // namespace

config::Outcome frmFromGML::Start(std::string_view sourcePath, std::string_view sourceFolder,
                                  std::string_view fileList) {
    import_.Begin(sourcePath, sourceFolder);
    import_.ForEachSource(sourcePath, fileList, [&](const std::string& path) { return ImportGmlFile(path); });
    import_.View().SetLabel("Completed!");
    return import_.Finish();
}

bool frmFromGML::ImportGmlFile(const std::string& path) {
    auto file = OpenTextSource(path, run_.Ui());
    if (!file) return false;
    try {
        formats::OpenedGml gml = formats::OpenGml(file->Bytes(), OptionsOf(run_));
        entities_.BeginFile(gml.lineLayout);
        std::string shownType;
        gml.reader->ReadFeatures([&](const formats::GmlFeature& feature) {
            if (feature.type != shownType) import_.View().SetLabel(shownType = feature.type);
            entities_.Add(feature, gml.reader->Consumed());
            import_.Sink().FeatureDone();
            import_.View().Progress(entities_.Features(), 0);
            file->DoneBefore(gml.reader->Consumed());
        });
        CompareSystem(file->Name(), gml.reader->SrsName());
    } catch (const platform::ReadError& error) {
        throw error.InFile(file->Name());
    }
    Report(file->Name());
    return entities_.Features() > 0;
}

void frmFromGML::CompareSystem(const std::string& file, const std::string& srsName) {
    if (srsName.empty()) return;
    using coords::SourceSystem;
    constexpr std::size_t longestShown = 100;
    std::string difference = SourceSystem(run_, srsName).Difference(SourceSystem::Assumed::Grid);
    if (!difference.empty())
        run_.Ui().Report(file + ": srsName " + srsName.substr(0, longestShown) + ": " + difference +
                         "; coordinates are taken as they stand");
}

void frmFromGML::Report(const std::string& file) {
    import_.CountFeatures(entities_.Features());
    auto report = [&](std::uint64_t count, const std::string& text) {
        if (count > 0) run_.Ui().Report(file + ": " + text + ": " + util::GroupedCount(count));
    };
    report(entities_.FeaturesWithoutPoints(), "features without coordinates, left out");
    report(entities_.FeaturesWithArcs(), "features with arcs, drawn straight between their points");
    report(entities_.DamagedFeatures(),
           "features with damaged coordinates (" + entities_.FirstDamage() + "), left out");
    if (entities_.Features() + entities_.FeaturesWithoutPoints() + entities_.DamagedFeatures() == 0)
        run_.Ui().Report(file + ": no features were found");
}

config::KeyList GmlKeys() {
    return config::ListOf<IniOptions>(keys);
}

}  // namespace vexlator::importer

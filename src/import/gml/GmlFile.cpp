// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/gml/GmlFile.h"

#include "config/Keys.h"
#include "coords/AxisCount.h"
#include "coords/SourceSystem.h"
#include "import/gml/frmFromGML.h"
#include "util/Numbers.h"

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

formats::OpenedGml Open(const config::Run& run, const platform::MappedFile& file) {
    try {
        return formats::OpenGml(file.Bytes(), OptionsOf(run));
    } catch (const platform::ReadError& error) {
        throw error.InFile(file.Name());
    }
}

}  // namespace

void GmlCounts::Count(const formats::GmlFeature& feature) {
    if (!feature.damage.empty()) {
        if (++damaged == 1) firstDamage = feature.damage;
    } else if (feature.parts.empty()) {
        ++withoutPoints;
    } else {
        ++features;
        if (feature.hasArcs) ++withArcs;
    }
}

void GmlCounts::Report(const std::string& file, ui::UserInterface& show) const {
    auto report = [&](std::uint64_t count, const std::string& text) {
        if (count > 0) show.Report(file + ": " + text + ": " + util::GroupedCount(count));
    };
    report(withoutPoints, "features without coordinates, left out");
    report(withArcs, "features with arcs, drawn as straight lines between their points");
    report(damaged, "features with damaged coordinates (" + firstDamage + "), left out");
}

GmlFile::GmlFile(config::Run& run, platform::MappedFile& file)
    : run_(run), file_(file), gml_(Open(run, file)) {}

void GmlFile::ReadFeatures(const formats::GmlReader::Take& take) {
    try {
        gml_.reader->ReadFeatures([&](const formats::GmlFeature& feature) {
            take(feature);
            file_.DoneBefore(Consumed());
        });
    } catch (const platform::ReadError& error) {
        throw error.InFile(file_.Name());
    }
    CompareSystem();
}

void GmlFile::CompareSystem() const {
    const std::string& srsName = gml_.reader->SrsName();
    if (srsName.empty()) return;
    using coords::SourceSystem;
    constexpr std::size_t longestShown = 100;
    std::string difference = SourceSystem(run_, srsName).Difference(SourceSystem::Assumed::Grid);
    if (!difference.empty())
        run_.Ui().Report(file_.Name() + ": srsName " + srsName.substr(0, longestShown) + ": " + difference +
                         "; coordinates are taken as they stand");
}

config::KeyList GmlKeys() {
    return config::ListOf<IniOptions>(keys);
}

}  // namespace vexlator::importer

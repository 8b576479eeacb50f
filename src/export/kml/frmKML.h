// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Keys.h"
#include "config/Outcome.h"

#include <string>
#include <string_view>

namespace vexlator::exporter {

struct BegunExport;
struct KmlSettings;

/// A drawing becomes one KML document in latitude and longitude for virtual globes, with thumbnails of its
/// photographs where these are published on a web server.
class frmKML {
public:
    explicit frmKML(config::Run& run) : run_(run) {}

    /// Writes the file, named after the drawing, into the folder `targetPath`, which exists.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    /// False where no placemark has a place: then no file appears.
    bool WriteFile(BegunExport& begun, const KmlSettings& settings, const std::string& name);
    void Launch(bool web, std::string_view kmlPath);
    void Publish(std::string_view kmlPath);

    config::Run& run_;
};

config::KeyList KmlKeys();

}  // namespace vexlator::exporter

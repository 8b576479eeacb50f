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

/// Exports a drawing as one KML document in latitude and longitude for virtual globes, with thumbnails of its
/// photographs if these are published on a web server.
class frmKML {
public:
    explicit frmKML(config::Run& run) : run_(run) {}

    /// Writes the file, with the drawing's name, into the existing folder `targetPath`.
    /// @throws platform::ReadError for a drawing that cannot be read, platform::WriteError
    config::Outcome Start(std::string_view drawingPath, std::string_view targetPath);

private:
    /// False if no placemark has a position; then no file appears.
    bool WriteFile(BegunExport& begun, const KmlSettings& settings, const std::string& name);
    void Launch(bool web, std::string_view kmlPath);
    void Publish(std::string_view kmlPath);

    config::Run& run_;
};

config::KeyList KmlKeys();

}  // namespace vexlator::exporter

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "import/shapefile/ShapeCoordinates.h"

#include "coords/TransformationSetting.h"
#include "platform/Errors.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <utility>

namespace vexlator::importer {

namespace {

constexpr double metresPerFoot = 0.3048;

}  // namespace

ShapeCoordinates::ShapeCoordinates(config::Run& run, const ShapeImportSettings& settings)
    : run_(run), settings_(settings) {}

void ShapeCoordinates::BeginFile(std::string_view shpPath) {
    kept_ = 0;
    rule_ = settings_.degrees ? Rule::Degrees : settings_.feet ? Rule::Feet : Rule::AsTheyStand;
    std::string prj = util::ChangeExtension(shpPath, "PRJ");
    if (util::FileSize(prj) > 0) ComparePrj(prj);
    if (rule_ == Rule::Degrees && !converter_) converter_ = std::make_unique<coords::frmLatLng>(run_);
}

void ShapeCoordinates::ComparePrj(const std::string& prjPath) {
    using Assumed = coords::SourceSystem::Assumed;
    Assumed assumed = rule_ == Rule::Degrees ? Assumed::Degrees
                      : rule_ == Rule::Feet  ? Assumed::GridInFeet
                                             : Assumed::Grid;
    std::string name = platform::FindExisting(prjPath);
    try {
        LoadSystem(prjPath);
        std::string difference = system_->Difference(assumed);
        if (!difference.empty()) run_.Ui().Report(name + ": " + difference + "; " + FollowPrj(name));
    } catch (const platform::ReadError& error) {
        run_.Ui().Report(name + ": " + error.Reason() + "; the settings hold");
    }
}

void ShapeCoordinates::LoadSystem(const std::string& prjPath) {
    std::string definition = coords::ReadDefinition(prjPath);
    if (system_ && definition == definition_) return;
    system_ = std::make_unique<coords::SourceSystem>(run_, definition);
    definition_ = std::move(definition);
}

std::string ShapeCoordinates::FollowPrj(const std::string& prjName) {
    if (!system_->IsKnown()) return "the settings hold";
    if (!settings_.followPrj) return "the settings are used ([SHPin] FOLLOWPRJ=1 converts by the .PRJ)";
    if (system_->SuitsLatLng()) {
        rule_ = Rule::Degrees;
    } else {
        std::string reason = system_->PrepareConversion(prjName);
        if (!reason.empty()) return "the settings hold, because " + reason;
        rule_ = Rule::Prj;
    }
    return "converted by the .PRJ ([SHPin] FOLLOWPRJ=1)";
}

void ShapeCoordinates::Convert(std::span<util::PlanePoint> vertices) {
    switch (rule_) {
        case Rule::AsTheyStand:
            break;
        case Rule::Feet:
            for (util::PlanePoint& v : vertices) v = {v.x * metresPerFoot, v.y * metresPerFoot};
            break;
        case Rule::Degrees:
            kept_ += converter_->LatLngToGrid(vertices);
            break;
        case Rule::Prj:
            kept_ += system_->ToDrawing(vertices);
            break;
    }
}

}  // namespace vexlator::importer

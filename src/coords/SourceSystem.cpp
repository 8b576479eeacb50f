// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/SourceSystem.h"

#include "coords/ConvertArray.h"
#include "coords/CoordinateOperation.h"
#include "coords/DamageNotice.h"
#include "coords/SystemComparison.h"
#include "coords/TransformationSetting.h"
#include "platform/Errors.h"
#include "ui/UserInterface.h"
#include "util/Text.h"

#include <optional>
#include <utility>

namespace vexlator::coords {

namespace {

/// Spellings in GML that the library does not know: "osgb:BNG", ".../srs/epsg.xml#27700".
std::string DefinitionOf(const std::string& name) {
    if (name == "osgb:BNG") return "EPSG:27700";
    std::size_t hash = name.find('#');
    bool epsg = hash != std::string::npos && util::InStrNoCase(name.substr(0, hash), "epsg") > 0;
    return epsg ? "EPSG:" + name.substr(hash + 1) : name;
}

ProjObject DrawingSystem(ProjContext& context, const config::Run& run) {
    try {
        return PlaneSystem(context, ReadTransformationSetting(run).DrawingSystem());
    } catch (const platform::ReadError&) {
        return nullptr;  // reported if it converts something
    }
}

}  // namespace

/// The systems of source and drawings, and the operation between them.
class SourceSystem::Conversion : public Backend {
public:
    Conversion(config::Run& run, const std::string& definition)
        : kind_(ReadTransformationSetting(run).kind),
          folders_(GridFoldersOf(run)),
          context_(folders_.inOrder),
          damage_(run.Ui(), folders_.forNew),
          source_(PlaneSystem(context_, DefinitionOf(definition))),
          drawing_(DrawingSystem(context_, run)) {}

    bool IsKnown() const { return source_ != nullptr; }

    std::string Difference(Assumed assumed) {
        if (!source_) return "the coordinate system is not known";
        std::string expected = Mismatch(assumed);
        if (expected.empty()) return "";
        return "the coordinates are in " + NameOf(source_, "a system without a name") +
               ", the settings say " + expected;
    }

    bool SuitsLatLng() {
        if (!IsInDegrees()) return false;
        if (kind_ != TransformationSetting::Kind::CorrectionGrid) return !drawing_;
        return !context_.FindInFolders("OSTN02.INT").empty() || !context_.FindInFolders("OSTN97.INT").empty();
    }

    std::string Prepare(std::string_view sourceName, ui::UserInterface& userInterface) {
        if (operation_) return "";
        if (!drawing_) return "[GPS] TRANSFORMATION defines no coordinate system to convert to";
        if (AreSame(context_, source_, drawing_)) return "";
        // Degrees are on the side on which the operation has them.
        bool toGrid = IsGeographic(context_, source_);
        direction_ = toGrid ? Direction::ToGrid : Direction::ToLatLng;
        if (IsGeographic(context_, drawing_)) decimals_.reset();
        CoordinateOperation loaded =
            OperationBetween(context_, Copy(toGrid ? drawing_ : source_), Copy(toGrid ? source_ : drawing_));
        if (!loaded.missingGrids.empty())
            userInterface.ShowMessage(std::string(sourceName) + ": " +
                                      MissingGridsText(loaded, folders_.forNew));
        operation_ = std::move(loaded.operation);
        return loaded.reason;
    }

    std::size_t ToDrawing(std::span<util::PlanePoint> points) {
        if (!operation_) return 0;
        return ConvertArray(*this, direction_, {points, {}}, {GridDecimals(), std::nullopt});
    }

    void Convert(Direction direction, Coordinates coordinates) override {
        operation_.Convert(direction, coordinates);
        damage_.TellOf(context_, *operation_.Get());
    }
    std::optional<int> GridDecimals() const override { return decimals_; }
    std::string Description() override { return "conversion to the drawings' coordinate system"; }

private:
    /// The settings' system; "" if the source agrees.
    std::string Mismatch(Assumed assumed) {
        if (assumed == Assumed::Degrees) return IsInDegrees() ? "" : "longitude and latitude on WGS 84";
        const std::string setting = "that of [GPS] TRANSFORMATION";
        if (!drawing_) return IsInDegrees() ? setting : "";
        bool feet = assumed == Assumed::GridInFeet && !IsGeographic(context_, drawing_);
        if (AreSame(context_, source_, feet ? InFeet(context_, drawing_) : Copy(drawing_))) return "";
        return NameOf(drawing_, setting) + (feet ? " in feet" : "");
    }

    bool IsInDegrees() {
        return AreSame(context_, source_, context_.Create("EPSG:4326")) ||
               AreSame(context_, source_, context_.Create("EPSG:4258"));
    }

    ProjObject Copy(const ProjObject& system) { return ProjObject(proj_clone(context_.Get(), system.get())); }

    TransformationSetting::Kind kind_;
    GridFolders folders_;
    ProjContext context_;
    DamageNotice damage_;
    ProjObject source_, drawing_;  ///< null if unknown
    ArrayOperation operation_;     ///< none if nothing has to be converted
    Direction direction_ = Direction::ToLatLng;
    std::optional<int> decimals_ = 3;
};

SourceSystem::SourceSystem(config::Run& run, const std::string& definition)
    : run_(run), conversion_(std::make_unique<Conversion>(run, definition)) {}

SourceSystem::~SourceSystem() = default;

bool SourceSystem::IsKnown() const {
    return conversion_->IsKnown();
}

std::string SourceSystem::Difference(Assumed assumed) const {
    return conversion_->Difference(assumed);
}

bool SourceSystem::SuitsLatLng() const {
    return conversion_->SuitsLatLng();
}

std::string SourceSystem::PrepareConversion(std::string_view sourceName) {
    return conversion_->Prepare(sourceName, run_.Ui());
}

std::size_t SourceSystem::ToDrawing(std::span<util::PlanePoint> points) {
    return conversion_->ToDrawing(points);
}

}  // namespace vexlator::coords

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/ExportToStore.h"

#include "corporate/store/Store.h"
#include "export/LayerLoop.h"
#include "export/photos/Photos.h"
#include "gis/TargetLayer.h"
#include "gis/TargetSystem.h"
#include "platform/Paths.h"
#include "util/Text.h"

#include <deque>
#include <utility>
#include <vector>

namespace vexlator::corporate {

namespace {

using gis::ShapeKind;

/// What is added to a feature code whose class holds other geometries.
const char* SuffixOf(const gis::TargetLayer& target) {
    if (target.Fits(wkbPoint)) return "_Points";
    if (target.Fits(wkbMultiLineString)) return "_Lines";
    return target.Fits(wkbMultiPolygon) ? "_Areas" : "_All";
}

class StoreExport {
public:
    StoreExport(config::Run& run, const std::string& drawingPath, const std::string& location,
                config::ConversionReport& report)
        : run_(run), report_(report) {
        begun_.view = run.Ui().ShowForm("Corporate");
        begun_.file = std::make_unique<drawing::DrawingFile>(drawingPath);
        exporter::ReadJobSource(run, begun_.file->Current().properties());
        job_ = run.Job().relative.empty() ? platform::NativePath(platform::AbsolutePath(drawingPath))
                                          : run.Job().relative;
        begun_.outcome.target = ShownLocation(location);
        layers_ = exporter::FindLayers(begun_, exporter::LayerZero::Export);
        store_ = Store::Open(location);
    }

    config::Outcome Start() {
        for (std::size_t i = 0; i < layers_.size(); ++i) AddTargets(i);
        exporter::WriteLayers(
            run_, begun_, layers_,
            [&](std::size_t layer, const exporter::LayerPart& part) {
                for (gis::TargetLayer* target : ofLayer_[layer]) target->Look(part);
            },
            [](std::size_t) { return std::uint64_t{0}; });
        RemoveEarlier();
        gis::SpatialReference system = gis::TargetSystem(run_, store_->Format(), false);
        for (std::size_t i = 0; i < layers_.size(); ++i)
            for (gis::TargetLayer* target : ofLayer_[i])
                if (target->HasFeatures()) OpenClass(*target, layers_[i].layer.name, system.get());
        exporter::WriteLayers(
            run_, begun_, layers_,
            [&](std::size_t layer, const exporter::LayerPart& part) {
                for (gis::TargetLayer* target : ofLayer_[layer]) target->Write(part);
            },
            [&](std::size_t layer) {
                std::uint64_t features = 0;
                for (gis::TargetLayer* target : ofLayer_[layer]) features += target->Finish(report_);
                return features;
            });
        store_->Commit();
        return begun_.outcome;
    }

private:
    void AddTargets(std::size_t layer) {
        auto add = [&]() -> gis::TargetLayer& {
            gis::TargetLayer& target = targets_.emplace_back(run_, store_->Format(), layers_[layer],
                                                             begun_.file->Current(), nullptr);
            target.Columns().NameJob(job_);
            ofLayer_.resize(layers_.size());
            ofLayer_[layer].push_back(&target);
            return target;
        };
        if (store_->Format().geometry == gis::LayerGeometry::Any) {
            add();
            return;
        }
        for (ShapeKind kind : {ShapeKind::Place, ShapeKind::Line, ShapeKind::Area}) add().TakeOnly(kind);
    }

    /// In every class, because a feature code may have gone from the drawing.
    void RemoveEarlier() {
        const std::string condition =
            "\"" + std::string(gis::jobColumn) + "\" = '" + util::ReplaceAll(job_, "'", "''") + "'";
        for (int i = 0; i < GDALDatasetGetLayerCount(store_->Handle()); ++i) {
            OGRLayerH layer = GDALDatasetGetLayer(store_->Handle(), i);
            if (OGR_FD_GetFieldIndex(OGR_L_GetLayerDefn(layer), gis::jobColumn.data()) < 0) continue;
            Require(OGR_L_SetAttributeFilter(layer, condition.c_str()) == OGRERR_NONE);
            std::vector<GIntBig> features;
            while (gis::Feature feature{OGR_L_GetNextFeature(layer)})
                features.push_back(OGR_F_GetFID(feature.get()));
            OGR_L_SetAttributeFilter(layer, nullptr);
            for (GIntBig feature : features) Require(OGR_L_DeleteFeature(layer, feature) == OGRERR_NONE);
        }
    }

    void Require(bool ok) const {
        if (!ok) throw platform::WriteError(store_->Name(), raster::TakeReason());
    }

    /// The class of that name, or one for this kind of geometries when that holds others.
    void OpenClass(gis::TargetLayer& target, const std::string& code, OGRSpatialReferenceH system) {
        static const std::vector<std::string> serverOptions{"LAUNDER=NO"}, none;
        const std::string name = gis::NameIn(store_->Format(), code);
        if (name != code) run_.Ui().Report(code + ": the feature class is called " + name);
        for (const char* suffix : {"", SuffixOf(target)}) {
            std::string own = name + suffix;
            OGRLayerH there = GDALDatasetGetLayerByName(store_->Handle(), own.c_str());
            if (!there)
                return target.Create(store_->Handle(), system, own, store_->Name(),
                                     store_->Format().isServer ? serverOptions : none);
            if (target.Fits(OGR_L_GetGeomType(there))) return target.AddTo(there, system, store_->Name());
        }
        throw platform::WriteError(store_->Name(),
                                   name + ": the feature classes of that name hold other geometries");
    }

    config::Run& run_;
    config::ConversionReport& report_;
    std::string job_;
    exporter::BegunExport begun_;
    std::vector<exporter::ExportLayer> layers_;
    std::unique_ptr<Store> store_;
    std::deque<gis::TargetLayer> targets_;
    std::vector<std::vector<gis::TargetLayer*>> ofLayer_;
};

}  // namespace

config::Outcome ExportToStore(config::Run& run, const std::string& drawingPath, const std::string& location,
                              config::ConversionReport& report) {
    return StoreExport(run, drawingPath, location, report).Start();
}

}  // namespace vexlator::corporate

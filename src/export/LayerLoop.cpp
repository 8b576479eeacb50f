// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "export/LayerLoop.h"

#include "drawing/AttributeTemplate.h"
#include "export/photos/Photos.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "workflow/WorkflowDatabase.h"

#include <set>
#include <vector>

namespace vexlator::exporter {

namespace {

/// Names that differ by letter case only would be one file.
std::string UniqueFileName(std::set<std::string>& taken, std::string_view layerName) {
    std::string name = util::SafeFileName(layerName);
    std::string candidate = name;
    for (int n = 1; !taken.insert(platform::LowerAscii(candidate)).second; ++n)
        candidate = name + "(" + std::to_string(n) + ")";
    return candidate;
}

}  // namespace

OpenExport::OpenExport(config::Session& session, std::string_view formName, std::string_view drawingPath,
                       std::string_view targetPath)
    : view(session.Ui().ShowForm(formName)) {
    view->SetCaption(":" + util::BaseNameOf(drawingPath));
    outcome.target = targetPath;
    drawing.open(drawingPath);
    ReadJobSource(session, drawing.properties());
    if (!workflow::ConfirmExportAllowed(session)) {
        outcome.status = config::Outcome::Status::StoppedByUser;
        return;
    }
    const std::string& source = session.Settings().JobSourcePath;
    GatherPhotos(session, drawing, util::FolderOf(source), util::BaseNameOf(source), targetPath);
}

std::uint64_t ForEachLayer(config::Session& session, drawing::Drawing& drawing, ui::FormView& view,
                           LayerZero layerZero, const std::function<void(const ExportLayer&)>& visit) {
    drawing.zoomExtents();
    std::set<std::string> taken;
    std::uint64_t exported = 0;
    for (const drawing::Layer& layer : drawing.layers()) {
        if (layer.frozen || (layerZero == LayerZero::Skip && layer.name == "0")) continue;
        drawing::SelectionSet& set = drawing.selectLayer("PJB", layer.name);
        if (set.count() == 0) continue;
        view.SetLabel(layer.name);
        visit({layer, set, UniqueFileName(taken, layer.name)});
        ++exported;
        session.Ui().Settle(0.1);
    }
    view.SetLabel("Completed!");
    return exported;
}

std::string TemplateFor(config::Session& session, const ExportLayer& layer) {
    std::string path = drawing::AtpPathFor(session, layer.layer.name);
    session.DebugMessage("ATPfile:" + platform::NativePath(path));
    if (util::FileSize(path) > 0) return path;
    std::vector<std::string> names;
    drawing::XProperties properties = layer.set.item(0).xproperties();
    for (std::size_t i = 0; i < properties.count(); ++i) names.emplace_back(properties.name(i));
    drawing::WriteAtpFromFields(path, names);
    return path;
}

}  // namespace vexlator::exporter

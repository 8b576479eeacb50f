// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/MapFile.h"

#include "platform/AsciiCase.h"
#include "render/DrawingScene.h"
#include "render/Hit.h"
#include "render/package/PackageScene.h"
#include "util/Numbers.h"
#include "util/Paths.h"

namespace vexlator::desktop {

namespace {

using render::ItemKind;

/// The scene's own data about the item.
render::EntityDetails DetailsOfScene(const render::Scene& scene, std::size_t number) {
    const render::Scene::Item& item = scene.At(number);
    render::EntityDetails details;
    details.layer = scene.Layers()[scene.SourceOf(number).layer].name;
    details.kind = item.kind == ItemKind::Area   ? "area"
                   : item.kind == ItemKind::Text ? "text"
                   : item.kind == ItemKind::Dot  ? "point"
                                                 : "line";
    details.length = LengthOf(scene, number);
    bool isText = item.kind == ItemKind::Text;
    details.vertices = isText ? 1 : item.vertices;
    if (isText) details.texts.emplace_back("Text", scene.TextOf(item).characters);
    return details;
}

}  // namespace

render::EntityDetails MapFile::DetailsOfItem(std::size_t item) const {
    if (!isPackage)
        if (auto details = render::DetailsOf(path, scene->SourceOf(item).entity)) return *details;
    return DetailsOfScene(*scene, item);
}

MapFile ReadMapFile(const std::string& path, const std::string& symbolsFolder) {
    MapFile file{path, nullptr, platform::SameNoCase(util::ExtensionOf(path), "GRP"), ""};
    render::SceneOptions options;
    options.symbolsFolder = symbolsFolder;
    options.tell = [&](std::string_view line) {
        file.notice.append(file.notice.empty() ? "" : "\n").append(line);
    };
    file.scene = std::make_shared<render::Scene>(file.isPackage ? render::SceneOfPackage(path, options)
                                                                : render::SceneOfFile(path, options));
    if (std::uint64_t leftOut = file.scene->LeftOut())
        options.tell(util::GroupedCount(leftOut) +
                     (leftOut == 1 ? " feature has no position" : " features have no position"));
    return file;
}

}  // namespace vexlator::desktop

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/map/MapFile.h"

#include "desktop/application/Texts.h"
#include "platform/AsciiCase.h"
#include "render/DrawingScene.h"
#include "render/Hit.h"
#include "render/package/PackageScene.h"
#include "util/Paths.h"

namespace vexlator::desktop {

namespace {

using render::ItemKind;

std::string KindOf(const render::Scene::Item& item) {
    switch (item.kind) {
        case ItemKind::Area:
            return "area";
        case ItemKind::Text:
            return "text";
        case ItemKind::Dot:
            return "point";
        case ItemKind::Image:
            return "image";
        default:
            return "line";
    }
}

/// The scene's own data about the item.
render::EntityDetails DetailsOfScene(const render::Scene& scene, std::size_t number) {
    const render::Scene::Item& item = scene.At(number);
    render::EntityDetails details;
    details.layer = scene.Layers()[scene.SourceOf(number).layer].name;
    details.kind = KindOf(item);
    details.length = LengthOf(scene, number);
    details.vertices = item.vertices;
    if (item.kind == ItemKind::Text) {
        details.vertices = 1;
        details.texts.emplace_back("Text", scene.TextOf(item).characters);
    }
    if (item.kind == ItemKind::Image) {
        const render::Image& image = scene.ImageOf(item);
        details.vertices = CornersOf(image, {}).size();
        details.texts.emplace_back("Pixels",
                                   std::to_string(image.width) + " x " + std::to_string(image.height));
    }
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
        options.tell(
            Texts::tr("%n feature(s) without a position", "", static_cast<int>(leftOut)).toStdString());
    return file;
}

}  // namespace vexlator::desktop

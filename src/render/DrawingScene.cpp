// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "render/DrawingScene.h"

#include "drawing/DrawingFile.h"
#include "platform/AsciiCase.h"
#include "platform/Errors.h"
#include "platform/Paths.h"
#include "render/EntityItems.h"
#include "render/SymbolScenes.h"

#include <algorithm>

namespace vexlator::render {

namespace {

/// @throws platform::ReadError for a wanted layer that does not exist
std::vector<bool> ShownLayers(const drawing::Drawing& drawing, const std::vector<std::string>& wanted) {
    std::vector<bool> shown;
    for (const drawing::Layer& layer : drawing.layers()) {
        bool isWanted = wanted.empty() || std::any_of(wanted.begin(), wanted.end(), [&](const auto& name) {
                            return platform::SameNoCase(name, layer.name);
                        });
        shown.push_back(isWanted && !layer.frozen);
    }
    for (const std::string& name : wanted)
        if (std::none_of(drawing.layers().begin(), drawing.layers().end(),
                         [&](const auto& layer) { return platform::SameNoCase(name, layer.name); }))
            throw platform::ReadError("", "", "there is no layer " + name);
    return shown;
}

/// The parts needed to make a scene, in the order of their dependencies.
class DrawingScene {
public:
    DrawingScene(const drawing::Drawing& drawing, const SceneOptions& options)
        : symbols_(drawing, options), items_(builder_, symbols_, 0) {
        if (options.ground) builder_.KeepOnly(*options.ground);
        items_.AddLayers(drawing, ShownLayers(drawing, options.layers));
    }
    void Add(drawing::Drawing& chunk) { items_.Add(chunk); }
    Scene Take() { return builder_.Take(); }

private:
    SceneBuilder builder_;
    SymbolScenes symbols_;
    EntityItems items_;
};

}  // namespace

Scene SceneOfFile(std::string_view path, const SceneOptions& options) {
    drawing::DrawingFile file(path);
    try {
        DrawingScene scene(file.Current(), options);
        file.ForEachChunk([&](drawing::Drawing& chunk) { scene.Add(chunk); });
        return scene.Take();
    } catch (const platform::ReadError& error) {
        throw error.InFile(platform::NativePath(path));
    }
}

Scene SceneOfDrawing(drawing::Drawing& drawing, const SceneOptions& options) {
    DrawingScene scene(drawing, options);
    scene.Add(drawing);
    return scene.Take();
}

}  // namespace vexlator::render

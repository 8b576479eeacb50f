// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/Transformer.h"

#include "platform/Errors.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vexlator::coords {

namespace {

std::size_t CharactersOf(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

Transformer::Transformer(TransformationSetting setting, GridFolders folders, ui::UserInterface& userInterface)
    : setting_(std::move(setting)),
      folderForGrids_(std::move(folders.forNew)),
      ui_(userInterface),
      context_(std::move(folders.inOrder)),
      damage_(userInterface, folderForGrids_) {}

void Transformer::Convert(Direction direction, Coordinates coordinates) {
    Instance& instance = direction == Direction::ToLatLng ? toLatLng_ : toGrid_;
    if (instance.state == State::NotLoaded) Load(instance);
    if (instance.state == State::Failed) {
        for (util::PlanePoint& point : coordinates.points) point = {HUGE_VAL, HUGE_VAL};
        return;
    }
    instance.operation.Convert(direction, coordinates);
    damage_.TellOf(context_, *instance.operation.Get());
}

CoordinateOperation Transformer::Read(std::string& text) {
    CoordinateOperation loaded;
    try {
        text = setting_.Definition();
        loaded = OperationFor(context_, text);
    } catch (const platform::ReadError& error) {
        loaded.reason = error.Reason();
    }
    return loaded;
}

void Transformer::Load(Instance& instance) {
    std::string text;
    CoordinateOperation loaded = Read(text);
    if (!loaded.missingGrids.empty() && !std::exchange(toldMissingGrid_, true))
        ui_.ShowMessage(setting_.Name() + ": " + MissingGridsText(loaded, folderForGrids_));
    instance.operation = std::move(loaded.operation);
    instance.state = instance.operation ? State::Loaded : State::Failed;
    if (!instance.operation) AskAboutFailure(text, loaded.reason);
}

void Transformer::AskAboutFailure(const std::string& text, const std::string& reason) {
    ui_.Report(setting_.Name() + ": " + reason);
    if (ui_.AskYesNo("Veltrom Coordinate Transformer Parameters Failed To Load \nMore ?"))
        ui_.ShowMessage(std::to_string(CharactersOf(text)) + "\n" + text);
}

std::string Transformer::Description() {
    std::string text;
    CoordinateOperation loaded = Read(text);
    std::string description =
        loaded.operation
            ? "coordinate system of " + setting_.Name() + damage_.Found(context_, *loaded.operation.Get())
            : "no transformation: " + setting_.Name() + ": " + loaded.reason;
    if (loaded.missingGrids.empty()) return description;
    return description + "; " + MissingGridsText(loaded, folderForGrids_);
}

}  // namespace vexlator::coords

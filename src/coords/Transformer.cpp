// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/Transformer.h"

#include "platform/Files.h"
#include "platform/Paths.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

namespace vexlator::coords {

namespace {

constexpr std::uint64_t largestDefinition = 1 << 20;

std::size_t CharactersOf(std::string_view utf8) {
    return static_cast<std::size_t>(
        std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string ReadDefinition(const std::string& path) {
    platform::MappedFile file(path);
    if (file.Bytes().size() > largestDefinition)
        throw platform::ReadError(file.Name(), "", "too large for a definition");
    return DefinitionText(file.Text());
}

}  // namespace

Transformer::Transformer(std::string definitionPath, std::vector<std::string> folders,
                         ui::UserInterface& userInterface)
    : definitionPath_(std::move(definitionPath)), ui_(userInterface), context_(std::move(folders)) {}

void Transformer::Convert(Direction direction, Coordinates coordinates) {
    Instance& instance = direction == Direction::ToLatLng ? toLatLng_ : toGrid_;
    if (instance.state == State::NotLoaded) Load(instance);
    if (instance.state == State::Failed) {
        for (util::PlanePoint& point : coordinates.points) point = {HUGE_VAL, HUGE_VAL};
        return;
    }
    instance.operation.Convert(direction, coordinates);
}

void Transformer::Load(Instance& instance) {
    std::string text;
    CoordinateOperation loaded;
    try {
        text = ReadDefinition(definitionPath_);
        loaded = OperationFor(context_, text);
    } catch (const platform::ReadError& error) {
        loaded.reason = error.Reason();
    }
    if (!loaded.missingGrid.empty()) TellMissingGrid(loaded.missingGrid);
    instance.operation = std::move(loaded.operation);
    instance.state = instance.operation ? State::Loaded : State::Failed;
    if (!instance.operation) AskAboutFailure(text, loaded.reason);
}

void Transformer::AskAboutFailure(const std::string& text, const std::string& reason) {
    ui_.Report(platform::NativePath(definitionPath_) + ": " + reason);
    if (ui_.AskYesNo("Veltrom Coordinate Transformer Parameters Failed To Load \nMore ?"))
        ui_.ShowMessage(std::to_string(CharactersOf(text)) + "\n" + text);
}

void Transformer::TellMissingGrid(const std::string& grid) {
    if (std::exchange(toldMissingGrid_, true)) return;
    ui_.ShowMessage(platform::NativePath(definitionPath_) + ": its best transformation needs the grid " +
                    grid + ", which is missing; coordinates may be metres off");
}

std::string Transformer::Description() const {
    return "coordinate system of " + platform::NativePath(definitionPath_);
}

}  // namespace vexlator::coords

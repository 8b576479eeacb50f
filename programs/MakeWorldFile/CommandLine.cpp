// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "MakeWorldFile/CommandLine.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Text.h"

namespace vexlator::makeworldfile {

namespace {

constexpr int smallestTile = 16, largestTile = 10'000;

int TileSize(const std::string& value) {
    std::int64_t size = util::IntegerOf(value);
    if (size < smallestTile || size > largestTile)
        throw WrongUse("CARVE " + value + ": tiles have " + std::to_string(smallestTile) + " to " +
                       std::to_string(largestTile) + " pixels");
    return static_cast<int>(size);
}

std::vector<std::string> LayersOf(std::string_view list) {
    std::vector<std::string> layers;
    for (std::size_t i = 0; i <= util::CountOf(list, "*"); ++i)
        if (std::string_view name = util::Trim(util::GetField(i, list, "*")); !name.empty())
            layers.emplace_back(name);
    return layers;
}

}  // namespace

Command ParseCommand(const std::vector<std::string>& arguments) {
    Command command;
    for (std::size_t i = 0; i < arguments.size(); i += 2) {
        std::string keyword = platform::UpperAscii(arguments[i]);
        if (i + 1 == arguments.size()) throw WrongUse(arguments[i] + ": has no value after it");
        const std::string& value = arguments[i + 1];
        if (keyword == "GEOREF") {
            command.georefFile = value;
        } else if (keyword == "SOURCE") {
            command.source = value;
        } else if (keyword == "TARGET") {
            command.target = value;
        } else if (keyword == "FILELIST") {
            command.layers = LayersOf(value);
        } else if (keyword == "CARVE") {
            command.tileSize = TileSize(value);
        } else if (keyword == "DEBUGFILE") {
            command.debugFile = value;
        } else {
            throw WrongUse(arguments[i] + ": no such keyword");
        }
    }
    if (command.source.empty()) throw WrongUse("Source: no image is named");
    if (command.target.empty()) throw WrongUse("target: no folder is named");
    return command;
}

}  // namespace vexlator::makeworldfile

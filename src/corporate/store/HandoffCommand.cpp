// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "corporate/store/HandoffCommand.h"

#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "util/Numbers.h"
#include "util/Paths.h"
#include "util/Text.h"
#include "util/WholeNumber.h"

#include <optional>
#include <utility>

namespace vexlator::corporate {

namespace {

bool TakeAction(const std::string& value) {
    bool isImport = platform::SameNoCase(value, "IMPORT");
    if (!isImport && !platform::SameNoCase(value, "EXPORT"))
        throw WrongUse("ACTION " + value + ": not understood");
    return isImport;
}

config::ImportExtentBox BoxOf(const std::string& value) {
    config::ImportExtentBox box;
    int field = 0;
    for (double* side : {&box.minX, &box.minY, &box.maxX, &box.maxY}) {
        std::optional<double> number = util::WholeNumberOf(util::GetCommaField(field++, value));
        if (!number) throw WrongUse("BOX " + value + ": not minX,minY,maxX,maxY");
        *side = *number;
    }
    if (box.minX > box.maxX || box.minY > box.maxY)
        throw WrongUse("BOX " + value + ": a maximum below a minimum");
    return box;
}

void Take(const std::string& word, const std::string& value, HandoffCommand& command) {
    const std::string keyword = platform::UpperAscii(word);
    if (keyword == "ACTION")
        command.isImport = TakeAction(value);
    else if (keyword == "GDB")
        command.store = value;
    else if (keyword == "VD")
        command.drawing = platform::AbsolutePath(value);
    else if (keyword == "BOX")
        command.extent = BoxOf(value);
    else if (keyword == "DEBUG")
        command.showsDetails = platform::SameNoCase(value, "ON");
    else if (keyword != "INI")  // a store needs no settings of its own
        throw WrongUse(word + ": not understood");
}

}  // namespace

std::string HandoffCommand::LogPath() const {
    return util::ChangeExtension(drawing, "LOG");
}

HandoffCommand ParseHandoff(const std::vector<std::string>& words) {
    HandoffCommand command;
    for (std::size_t i = 0; i < words.size(); i += 2) {
        if (i + 1 == words.size()) throw WrongUse(words[i] + ": has no value behind it");
        Take(words[i], words[i + 1], command);
    }
    if (command.store.empty() || command.drawing.empty()) throw WrongUse("GDB and VD are needed");
    return command;
}

}  // namespace vexlator::corporate

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/DamageNotice.h"

#include "coords/GridProof.h"
#include "coords/TiffMessages.h"
#include "platform/Paths.h"

#include <utility>

namespace vexlator::coords {

DamageNotice::DamageNotice(ui::UserInterface& userInterface, const std::string& folderForGrids)
    : ui_(userInterface),
      advice_("; put an undamaged copy into " + platform::NativePath(folderForGrids) +
              ": until then positions have no result") {}

void DamageNotice::TellOf(const std::string& file) {
    std::string reason = TakeTiffMessage();
    if (reason.empty() || std::exchange(told_, true)) return;
    ui_.ShowMessage(file + ": the grid is damaged: " + reason + advice_);
}

void DamageNotice::TellOf(const ProjContext& context, PJ& operation) {
    if (!HasTiffMessage()) return;
    std::string names;
    for (const std::string& file : GridFilesOf(context, operation))
        names += (names.empty() ? "" : ", ") + file;
    TellOf(names.empty() ? "a grid of [GPS] TRANSFORMATION" : names);
}

std::string DamageNotice::Found(const ProjContext& context, PJ& operation) const {
    auto [file, reason] = FindDamagedGrid(context, operation);
    return reason.empty() ? "" : "; " + file + ": the grid is damaged: " + reason + advice_;
}

}  // namespace vexlator::coords

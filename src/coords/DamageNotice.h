// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ProjContext.h"
#include "ui/UserInterface.h"

#include <string>

namespace vexlator::coords {

/// Tells people of grid files that turn out to be damaged, each way of converting once.
class DamageNotice {
public:
    DamageNotice(ui::UserInterface& userInterface, const std::string& folderForGrids);

    /// To be called after a conversion: shows what the library complained of in it, with the file that was
    /// read or those that the operation reads.
    void TellOf(const std::string& file);
    void TellOf(const ProjContext& context, PJ& operation);

    /// Reads the operation's grids all over. For people, behind a description: "" when they are whole.
    std::string Found(const ProjContext& context, PJ& operation) const;

private:
    ui::UserInterface& ui_;
    std::string advice_;  ///< what can be done
    bool told_ = false;
};

}  // namespace vexlator::coords

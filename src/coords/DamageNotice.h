// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/ProjContext.h"
#include "ui/UserInterface.h"

#include <string>

namespace vexlator::coords {

/// Reports damaged grid files to the user, once for each conversion.
class DamageNotice {
public:
    DamageNotice(ui::UserInterface& userInterface, const std::string& folderForGrids);

    /// Call after a conversion. Shows the library's error messages of the conversion, with the file that was
    /// read or the files of the operation.
    void TellOf(const std::string& file);
    void TellOf(const ProjContext& context, PJ& operation);

    /// Reads the whole grids of the operation. Returns a text to append to a description: "" if they are
    /// undamaged.
    std::string Found(const ProjContext& context, PJ& operation) const;

private:
    ui::UserInterface& ui_;
    std::string advice_;  ///< advice for the user
    bool told_ = false;
};

}  // namespace vexlator::coords

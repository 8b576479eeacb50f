// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"
#include "coords/CoordinateOperation.h"
#include "coords/DamageNotice.h"
#include "coords/ProjContext.h"
#include "coords/TransformationSetting.h"
#include "ui/UserInterface.h"

#include <string>

namespace vexlator::coords {

/// The coordinate system, or the operation, of a definition. Each direction is loaded at its first use, and
/// the result is kept.
class Transformer : public Backend {
public:
    /// `folders`: searched first for grids.
    Transformer(TransformationSetting setting, GridFolders folders, ui::UserInterface& userInterface);

    /// If a definition fails to load, the user is asked once, and then no point has a result in this
    /// direction. A missing or damaged grid is reported once.
    void Convert(Direction direction, Coordinates coordinates) override;
    std::string Description() override;

private:
    enum class State { NotLoaded, Failed, Loaded };
    struct Instance {
        State state = State::NotLoaded;
        ArrayOperation operation;
    };

    /// Loads the definition, and puts its text in `text`.
    CoordinateOperation Read(std::string& text);
    void Load(Instance& instance);
    void AskAboutFailure(const std::string& text, const std::string& reason);

    TransformationSetting setting_;
    std::string folderForGrids_;
    ui::UserInterface& ui_;
    ProjContext context_;
    Instance toLatLng_, toGrid_;
    bool toldMissingGrid_ = false;
    DamageNotice damage_;
};

}  // namespace vexlator::coords

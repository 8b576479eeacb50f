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

/// The coordinate system, or the operation, of a definition. Each direction loads it when it is
/// used first, and keeps what came of it.
class Transformer : public Backend {
public:
    /// `folders`: where its grids are looked for first.
    Transformer(TransformationSetting setting, GridFolders folders, ui::UserInterface& userInterface);

    /// A definition that fails to load is asked about once, and then no point has a result in this direction.
    /// A missing grid is told once, and so is a damaged one.
    void Convert(Direction direction, Coordinates coordinates) override;
    std::string Description() override;

private:
    enum class State { NotLoaded, Failed, Loaded };
    struct Instance {
        State state = State::NotLoaded;
        ArrayOperation operation;
    };

    /// Loads the definition, whose text is put in `text`.
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

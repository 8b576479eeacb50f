// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"
#include "coords/CoordinateOperation.h"
#include "coords/ProjContext.h"
#include "ui/UserInterface.h"

#include <string>
#include <vector>

namespace vexlator::coords {

/// The coordinate system, or the operation, that a definition file names. Each direction loads it when it is
/// used first, and keeps what came of it.
class Transformer : public Backend {
public:
    /// `folders`: where its grids are looked for first.
    Transformer(std::string definitionPath, std::vector<std::string> folders,
                ui::UserInterface& userInterface);

    /// A definition that fails to load is asked about once, and then no point has a result in this direction.
    /// A missing grid is told once.
    void Convert(Direction direction, Coordinates coordinates) override;
    std::string Description() const override;

private:
    enum class State { NotLoaded, Failed, Loaded };
    struct Instance {
        State state = State::NotLoaded;
        ArrayOperation operation;
    };

    void Load(Instance& instance);
    void AskAboutFailure(const std::string& text, const std::string& reason);
    void TellMissingGrid(const std::string& grid);

    std::string definitionPath_;
    ui::UserInterface& ui_;
    ProjContext context_;
    Instance toLatLng_, toGrid_;
    bool toldMissingGrid_ = false;
};

}  // namespace vexlator::coords

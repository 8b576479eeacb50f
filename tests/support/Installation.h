// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Run.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <gtest/gtest.h>
#include <string>
#include <string_view>

namespace vexlator::test {

/// An installation in a folder of its own, and a run in it on 5 March 2024.
struct Installation {
    Installation() {
        config::SharedSettings& settings = installation.Settings();
        settings.IniFilePath = folder / "gv.ini";
        settings.ConfigFolder = settings.ProgramFolder = folder.Path();
        settings.ATPDirectory = folder / "ATP";
        settings.SymbolsDirectory = folder / "Symbols";
    }
    void Ini(std::string_view text) { folder.Write("gv.ini", text); }
    void Template(const std::string& code, std::string_view text) {
        folder.Write("ATP/" + code + ".ATP", text);
    }

    TempFolder folder;
    TestUi ui;
    config::Installation installation{[] { return platform::DateTime{2024, 3, 5, 14, 7, 0}; }};
    config::Run run{installation, ui};
};

class InstallationTest : public testing::Test, protected Installation {};

}  // namespace vexlator::test

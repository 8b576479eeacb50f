// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "config/Session.h"
#include "job/DrawingText.h"
#include "support/TempFolder.h"
#include "support/TestUi.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace vexlator::test {

/// An installation with a few templates and symbols, and a folder for jobs.
class JobTest : public testing::Test {
protected:
    JobTest() {
        session.Settings().ConfigFolder = folder.Path();
        session.Settings().IniFilePath = folder / "gv.ini";
        session.Settings().ATPDirectory = folder / "ATP";
        session.Settings().SymbolsDirectory = folder / "Symbols";
        folder.Write("Symbols/DEFAULT.VDF", "a symbol");
        folder.Write("Symbols/OAK.VDF", "a symbol");
        Template("TREE",
                 "[01,01]ID,C08.00,\n[01,02]KIND<K>,C08.00,\n[01,03]HOTLINK,C20.00=,\n'STYLE=0,OAK,5\n");
        Template(
            "FENCE",
            "[01,01]A,C08.00=x,y\n[01,02] B ,C08.00,\n[01,03]C,C08.00,\n[01,04]short\n'STYLE=0,2,255,\n");
        Template("OPEN", "'STYLE=0,-1,9\n");
        Template("WALL", "[01,01]W,C08.00,\n");
        Template("TR", "TREE=\n");
    }
    void Template(const std::string& code, const std::string& text) {
        folder.Write("ATP/" + code + ".ATP", text);
    }

    TempFolder folder;
    TestUi ui;
    config::Session session{ui};
};

}  // namespace vexlator::test

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "desktop/application/Application.h"
#include "desktop/mobilestyles/StyleEditorWindow.h"
#include "platform/Paths.h"
#include "platform/Signals.h"

#include <QApplication>
#include <cstdio>
#include <string>

/// The program that the styling window starts to edit the mobile style file.
namespace vexlator {
namespace {

constexpr const char* help =
    R"(StyleEditor: edits a mobile style file

  StyleEditor [FILE]    a file that is not there is made when it is saved

  --dark       dark colours
  --help, --version
)";

int Perform(int argc, char** argv) {
    bool dark = false;
    std::string file;
    for (int i = 1; i < argc; ++i) {
        std::string argument = argv[i];
        if (argument == "--help") return std::fputs(help, stdout) < 0;
        if (argument == "--version") return std::puts("StyleEditor " VEXLATOR_VERSION) < 0;
        if (argument == "--dark")
            dark = true;
        else if (argument.starts_with("--") || !file.empty())
            return std::fprintf(stderr, "StyleEditor: \"%s\" is not understood; see --help\n", argv[i]), 2;
        else
            file = argument;
    }
    if (!desktop::HasDisplay()) return std::fputs("StyleEditor: it needs a display\n", stderr), 3;
    QApplication application(argc, argv);
    QApplication::setApplicationVersion(QStringLiteral(VEXLATOR_VERSION));
    desktop::SetUp(application, dark);
    desktop::StyleEditorWindow window;
    if (!file.empty() && !window.Open(platform::AbsolutePath(file))) return 1;
    window.show();
    return QApplication::exec();
}

}  // namespace
}  // namespace vexlator

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    return vexlator::Perform(argc, argv);
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// MapBookPrinter: draws the pages of a map book for the program that has planned it, without a display.
#include "mapbook/BookPlan.h"
#include "mapbook/paint/BookWriter.h"
#include "platform/Files.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "util/Counted.h"

#include <QGuiApplication>
#include <cstdio>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::mapbookprinter {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: MapBookPrinter PLAN.INI\n"
    "       MapBookPrinter --help | --version\n";

constexpr std::string_view help =
    "\n"
    "Draws a map book by a plan that vexlator \"DRAWING.PDF\" makes. Prints \"progress N M\" while it "
    "draws,\n"
    "\"message: TEXT\" and \"note: TEXT\" for the user, and \"result LAYERS FEATURES\" at the end.\n"
    "Exit status: 0 done; 1 failed, and the old book is unchanged; 2 wrong use.\n";

/// A line that the caller can read at once.
void Say(const std::string& line) {
    platform::Print(line + "\n");
    platform::FinishPrinting();
}

int Fail(std::string_view reason) {
    std::string line = "MapBookPrinter: " + std::string(reason) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return failed;
}

int Perform(const std::string& planPath) {
    mapbook::BookPlan plan = mapbook::ReadBookPlan(platform::ReadWholeFile(planPath));
    mapbook::BookResult result = mapbook::WriteBook(
        plan, {.progress =
                   [](std::size_t pages, std::size_t total) {
                       Say("progress " + std::to_string(pages) + " " + std::to_string(total));
                   },
               .tell = [](std::string_view line) { Say("message: " + std::string(line)); }});
    std::string pages = "note: " + plan.job + ": " + util::Counted(result.pages, "page");
    if (result.keptImages > 0)
        pages += ", " + util::Counted(result.keptImages, "image") + " of them unchanged";
    Say(pages);
    Say("result " + std::to_string(result.layers) + " " + std::to_string(result.features));
    return done;
}

int Run(const std::vector<std::string>& arguments) {
    bool printsHelp = arguments == std::vector<std::string>{"--help"};
    if (printsHelp || arguments == std::vector<std::string>{"--version"}) {
        platform::Print(printsHelp ? std::string(usage).append(help)
                                   : "MapBookPrinter " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
        return done;
    }
    if (arguments.size() == 1 && !arguments[0].starts_with("-")) return Perform(arguments[0]);
    std::fwrite(usage.data(), 1, usage.size(), stderr);
    return wrongUse;
}

int RunAndReport(const std::vector<std::string>& arguments) {
    try {
        return Run(arguments);
    } catch (const platform::Stopped&) {
        Fail("stopped; the old book is unchanged");
        platform::EndBySignal();
        return failed;
    } catch (const platform::OutputError&) {
        return failed;
    } catch (const std::bad_alloc&) {
        return Fail("not enough memory");
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

/// Qt's messages do not help a user who wants a book.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*message*/) {}

}  // namespace

}  // namespace vexlator::mapbookprinter

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    vexlator::platform::StopOnSignals();
    std::vector<std::string> arguments(argv + 1, argv + argc);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(vexlator::mapbookprinter::DropMessage);
    // The arguments are ours. Qt sees none.
    int one = 1;
    QGuiApplication application(one, argv);
    return vexlator::mapbookprinter::RunAndReport(arguments);
}

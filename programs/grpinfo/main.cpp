// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// grpinfo: reads a background package like the device, proves it and reports its contents.
#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"
#include "grpinfo/GeoJson.h"
#include "grpinfo/Summary.h"
#include "grpinfo/Svg.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::grpinfo {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: grpinfo PACKAGE.GRP              prove a package and say what it holds\n"
    "       grpinfo --json PACKAGE.GRP       the same as JSON\n"
    "       grpinfo --geojson PACKAGE.GRP    prove a package and print its elements as GeoJSON\n"
    "       grpinfo --svg OUT.svg PACKAGE.GRP    prove a package and draw it\n"
    "       grpinfo --help | --version\n";

constexpr std::string_view help =
    "\n"
    "A package is whole when every offset, count, length and box is right, every ring of an area is closed "
    "and\n"
    "reaches its line, texts have a height, and keys lead to records of the layer file.\n"
    "Exit status: 0 whole; 1 damaged (file, place and reason on standard error) or not written; 2 wrong "
    "use.\n";

enum class Wanted { Text, Json, GeoJson, Svg };

struct Command {
    Wanted wanted = Wanted::Text;
    std::string package, svg;
};

/// Options can be before or after the package. False if they are not understood.
bool Parse(const std::vector<std::string>& arguments, Command& command) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        bool isOption = argument.starts_with("--");
        if (isOption && command.wanted != Wanted::Text) return false;
        if (argument == "--json") {
            command.wanted = Wanted::Json;
        } else if (argument == "--geojson") {
            command.wanted = Wanted::GeoJson;
        } else if (argument == "--svg" && i + 1 < arguments.size()) {
            command.wanted = Wanted::Svg;
            command.svg = arguments[++i];
        } else if (isOption || !command.package.empty()) {
            return false;
        } else {
            command.package = argument;
        }
    }
    return !command.package.empty();
}

void Show(const Command& command) {
    background::PackageReader package(command.package);
    background::PackageCounts counts = ProvePackage(package);
    if (command.wanted == Wanted::GeoJson) return PrintGeoJson(package, platform::Print);
    if (command.wanted == Wanted::Svg) WriteSvg(package, command.svg);
    platform::Print(command.wanted == Wanted::Json ? SummaryJson(package, counts)
                                                   : SummaryText(package, counts));
}

int Run(const std::vector<std::string>& arguments) {
    Command command;
    if (arguments == std::vector<std::string>{"--version"}) {
        platform::Print("grpinfo " VEXLATOR_VERSION "\n");
    } else if (arguments == std::vector<std::string>{"--help"}) {
        platform::Print(usage);
        platform::Print(help);
    } else if (Parse(arguments, command)) {
        Show(command);
    } else {
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    }
    platform::FinishPrinting();
    return done;
}

int Fail(const std::string& reason) {
    std::string line = "grpinfo: " + reason + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
    return failed;
}

int RunAndReport(const std::vector<std::string>& arguments) {
    try {
        return Run(arguments);
    } catch (const platform::OutputError& error) {
        return error.reason.empty() ? failed : Fail("standard output: " + error.reason);
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

}  // namespace

}  // namespace vexlator::grpinfo

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    return vexlator::grpinfo::RunAndReport({argv + 1, argv + argc});
}

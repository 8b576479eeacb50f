// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// grpinfo: reads a background package as the device does, proves it and tells what it holds.
#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"
#include "grpinfo/GeoJson.h"
#include "grpinfo/Summary.h"
#include "grpinfo/Svg.h"

#include <cerrno>
#include <csignal>
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
    "A package is whole when every offset, count and box is right and every ring of an area reaches its "
    "line.\n"
    "Exit status: 0 whole; 1 damaged (file, place and reason on standard error) or not written; 2 wrong "
    "use.\n";

/// Standard output cannot take more.
struct OutputError {
    int reason;
};

void Print(std::string_view text) {
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size()) throw OutputError{errno};
}

enum class Wanted { Text, Json, GeoJson, Svg };

struct Command {
    Wanted wanted = Wanted::Text;
    std::string package, svg;
};

/// Options may stand before or behind the package. False for what is not understood.
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
    if (command.wanted == Wanted::GeoJson) return PrintGeoJson(package, Print);
    if (command.wanted == Wanted::Svg) WriteSvg(package, command.svg);
    Print(command.wanted == Wanted::Json ? SummaryJson(package, counts) : SummaryText(package, counts));
}

int Run(const std::vector<std::string>& arguments) {
    Command command;
    if (arguments == std::vector<std::string>{"--version"}) {
        Print("grpinfo " VEXLATOR_VERSION "\n");
    } else if (arguments == std::vector<std::string>{"--help"}) {
        Print(usage);
        Print(help);
    } else if (Parse(arguments, command)) {
        Show(command);
    } else {
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    }
    if (std::fflush(stdout) != 0) throw OutputError{errno};
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
    } catch (const OutputError& error) {
        // Whoever read the output has had enough and needs no message.
        return error.reason == EPIPE ? failed
                                     : Fail("standard output: " + std::string(std::strerror(error.reason)));
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

}  // namespace

}  // namespace vexlator::grpinfo

int main(int argc, char** argv) {
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN);  // a closed pipe is then an ordinary error of writing
#endif
    return vexlator::grpinfo::RunAndReport({argv + 1, argv + argc});
}

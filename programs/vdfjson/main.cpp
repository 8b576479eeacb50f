// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// vdfjson: drawings as JSON and back.
#include "drawing/Drawing.h"
#include "platform/Files.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "util/Paths.h"
#include "vdfjson/DrawingToJson.h"
#include "vdfjson/JsonToDrawing.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <new>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::vdfjson {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: vdfjson dump FILE.VDF           print a drawing as GeoJSON\n"
    "       vdfjson load IN.json OUT.VDF    make a drawing of GeoJSON (\"-\": standard input)\n"
    "       vdfjson --help | --version\n";

constexpr std::string_view help =
    "\n"
    "A dump holds the whole drawing. Every feature's member \"vdf\" is the entity itself, which load reads.\n"
    "\"geometry\" and \"properties\" are for GIS viewers. \"blocks\" are symbols with their entities.\n"
    "\n"
    "load also reads GeoJSON of other programs. Lines and the rings of polygons become polylines. Each part "
    "of "
    "a\n"
    "multiple geometry becomes a separate entity. The property \"layer\" names a feature's layer; features "
    "without\n"
    "it go on the layer with the file's name. All features of a layer get the properties of any of them.\n"
    "\n"
    "Exit status: 0 done; 1 failed, and OUT.VDF is unchanged; 2 wrong use.\n";

void Tell(const std::string& file, const std::string& what) {
    std::string line = "vdfjson: " + (file.empty() ? "" : file + ": ") + what + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

void Dump(const std::string& path) {
    drawing::Drawing drawing;
    drawing.open(path);
    DrawingToJson(drawing, platform::Print, [&](std::string_view line) { Tell(path, std::string(line)); });
    platform::FinishPrinting();
}

std::string ReadStandardInput() {
    std::string text;
    std::array<char, std::size_t{1} << 16> piece;
    while (std::size_t size = std::fread(piece.data(), 1, piece.size(), stdin))
        text.append(piece.data(), size);
    if (std::ferror(stdin)) throw platform::ReadError("standard input", "", std::strerror(errno));
    return text;
}

void LoadText(std::string_view json, const std::string& name, std::string_view plainLayer,
              const std::string& target) {
    drawing::Drawing drawing;
    try {
        JsonToDrawing(json, plainLayer, drawing);
    } catch (const platform::ReadError& error) {
        throw error.InFile(name);
    }
    // Before this point a signal leaves nothing behind.
    platform::StopOnSignals();
    drawing.saveAs(target);
}

void Load(const std::string& source, const std::string& target) {
    if (source == "-") {
        LoadText(ReadStandardInput(), "standard input", util::BaseNameOf(target), target);
        return;
    }
    platform::MappedFile file(source);
    LoadText(file.Text(), file.Name(), util::BaseNameOf(source), target);
}

int Run(const std::vector<std::string>& arguments) {
    auto is = [&](std::string_view command, std::size_t count) {
        return arguments.size() == count && arguments[0] == command;
    };
    if (is("dump", 2)) {
        Dump(arguments[1]);
    } else if (is("load", 3)) {
        Load(arguments[1], arguments[2]);
    } else if (is("--version", 1)) {
        platform::Print("vdfjson " VEXLATOR_VERSION "\n");
        platform::FinishPrinting();
    } else if (is("--help", 1)) {
        platform::Print(usage);
        platform::Print(help);
        platform::FinishPrinting();
    } else {
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    }
    return done;
}

int Fail(const std::string& file, const std::string& reason) {
    Tell(file, reason);
    return failed;
}

int RunAndReport(const std::vector<std::string>& arguments) {
    const std::string file = arguments.size() > 1 ? arguments[1] : "";
    try {
        return Run(arguments);
    } catch (const platform::Stopped&) {
        Fail(arguments.back(), "stopped; it is unchanged");
        platform::EndBySignal();
        return failed;
    } catch (const platform::ReadError& error) {
        return Fail("", error.what());
    } catch (const platform::WriteError& error) {
        return Fail("", error.what());
    } catch (const platform::OutputError& error) {
        return error.reason.empty() ? failed : Fail("standard output", error.reason);
    } catch (const std::bad_alloc&) {
        return Fail(file, "not enough memory");
    } catch (const std::exception& error) {
        return Fail(file, error.what());
    }
}

}  // namespace

}  // namespace vexlator::vdfjson

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    return vexlator::vdfjson::RunAndReport({argv + 1, argv + argc});
}

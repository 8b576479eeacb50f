// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// vdfpicture: a picture of a drawing or a background package, without a display.
#include "config/Ini.h"
#include "platform/AsciiCase.h"
#include "platform/Paths.h"
#include "platform/Signals.h"
#include "platform/StandardOutput.h"
#include "render/DrawingScene.h"
#include "render/package/PackageScene.h"
#include "util/Paths.h"
#include "vdfpicture/Options.h"
#include "vdfpicture/Picture.h"

#include <QGuiApplication>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vexlator::vdfpicture {

namespace {

constexpr int done = 0, failed = 1, wrongUse = 2;

constexpr std::string_view usage =
    "usage: vdfpicture [OPTIONS] FILE.VDF|FILE.GRP OUT.png|OUT.svg|OUT.pdf\n"
    "       vdfpicture --help | --version\n";

constexpr std::string_view help =
    "\n"
    "  --size WIDTHxHEIGHT               pixels, 1600x1000 by default; in SVG and PDF, of 1/96 inch\n"
    "  --extent minX,minY,maxX,maxY      the part to show, in the drawing's units; by default all of it\n"
    "  --layers A,B                      only these layers; of a package, its themes or colours\n"
    "  --furniture                       a complete map: frame with coordinates, scale bar, north arrow,\n"
    "                                    legend, title; its extent leaves out features far from all others\n"
    "\n"
    "Frozen layers are not shown. Symbols missing in a drawing come from SymbolsDirectory of the\n"
    "installation in VEXLATOR_HOME.\n"
    "Exit status: 0 done; 1 failed, and the picture is unchanged; 2 wrong use.\n";

void Tell(std::string_view what) {
    std::string line = "vdfpicture: " + std::string(what) + "\n";
    std::fwrite(line.data(), 1, line.size(), stderr);
}

/// The only place that reads settings.
std::string SymbolsFolder() {
    const char* home = std::getenv("VEXLATOR_HOME");
    if (!home) return "";
    return config::ReadIniFile(util::JoinPath(home, "gv.ini"), "GENERAL", "SymbolsDirectory");
}

/// The ground to read for a window. A map's window depends on its legend, so everything is read.
std::optional<render::Box> GroundToRead(const Options& options) {
    if (!options.extent || options.hasFurniture) return std::nullopt;
    constexpr double dots = 20;  // margin in pixels, for items that are wider than their boxes
    render::View view(*options.extent, options.width, options.height);
    render::PlanePoint least = view.ToGround({-dots, options.height + dots});
    render::PlanePoint most = view.ToGround({options.width + dots, -dots});
    return render::Box{least.x, least.y, most.x, most.y};
}

void Draw(const Options& options) {
    render::SceneOptions wanted;
    wanted.layers = options.layers;
    wanted.ground = GroundToRead(options);
    wanted.symbolsFolder = SymbolsFolder();
    wanted.tell = Tell;
    bool isPackage = platform::SameNoCase(util::ExtensionOf(options.source), "grp");
    render::Scene scene =
        isPackage ? SceneOfPackage(options.source, wanted) : SceneOfFile(options.source, wanted);
    if (scene.LeftOut() > 0)
        Tell(options.source + ": features without a position, left out: " + std::to_string(scene.LeftOut()));
    WritePicture(scene, options, Tell);
}

int Run(const std::vector<std::string>& arguments) {
    if (arguments == std::vector<std::string>{"--version"}) {
        platform::Print("vdfpicture " VEXLATOR_VERSION "\n");
    } else if (arguments == std::vector<std::string>{"--help"}) {
        platform::Print(usage);
        platform::Print(help);
    } else {
        Draw(ParseOptions(arguments));
    }
    platform::FinishPrinting();
    return done;
}

int Fail(std::string_view reason) {
    Tell(reason);
    return failed;
}

int RunAndReport(const std::vector<std::string>& arguments) {
    try {
        return Run(arguments);
    } catch (const WrongUse& use) {
        if (!use.reason.empty()) Tell(use.reason);
        std::fwrite(usage.data(), 1, usage.size(), stderr);
        return wrongUse;
    } catch (const platform::Stopped&) {
        Fail(arguments.back() + ": stopped; it is unchanged");
        platform::EndBySignal();
        return failed;
    } catch (const platform::OutputError& error) {
        return error.reason.empty() ? failed : Fail("standard output: " + error.reason);
    } catch (const std::bad_alloc&) {
        return Fail("not enough memory");
    } catch (const std::exception& error) {
        return Fail(error.what());
    }
}

/// Qt's messages do not help a user who wants a picture.
void DropMessage(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& /*message*/) {}

}  // namespace

}  // namespace vexlator::vdfpicture

int main(int argc, char** argv) {
    vexlator::platform::HandleFileSignals();
    std::vector<std::string> arguments(argv + 1, argv + argc);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(vexlator::vdfpicture::DropMessage);
    // The arguments are ours. Qt sees none.
    int one = 1;
    QGuiApplication application(one, argv);
    return vexlator::vdfpicture::RunAndReport(arguments);
}

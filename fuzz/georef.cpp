// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a world file, a list of control points, their .INI, QGIS' points and a typed position, or are
// refused; what is read is written and read back the same.
#include "formats/worldfile/WorldFile.h"
#include "georef/Fit.h"
#include "georef/Ground.h"
#include "georef/PointEntries.h"
#include "georef/QgisPoints.h"
#include "platform/Errors.h"
#include "util/Files.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

using namespace vexlator;

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

void CheckWorldFile(std::string_view text) {
    try {
        formats::WorldFile world = formats::ParseWorldFile(text);
        Require(formats::ParseWorldFile(formats::WorldFileText(world)) == world);
    } catch (const platform::ReadError&) {
    }
}

void CheckPoints(georef::PointEntries entries) {
    while (!entries.empty() && entries.back() == georef::PointEntry()) entries.pop_back();
    Require(georef::ParsePointText(georef::PointText(entries)) == entries);
    try {
        georef::Fit fit(georef::PointsForFit(entries));
        Require(fit.Residuals().size() <= georef::CountComplete(entries) &&
                !fit.Description().English().empty());
    } catch (const georef::FitError&) {
    }
}

void CheckQgisPoints(std::string_view text) {
    try {
        georef::PointEntries entries = georef::ParseQgisPoints(text);
        Require(georef::ParseQgisPoints(georef::QgisPointsText(entries)) == entries);
    } catch (const platform::ReadError&) {
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckWorldFile(text);
    CheckPoints(georef::ParsePointText(text));
    CheckQgisPoints(text);
    georef::ParseGeorefFile(text);
    for (util::LineReader lines(text); !lines.AtEnd();)
        Require(!georef::ReadGround(lines.ReadTextLine()).said.IsEmpty());
    return 0;
}

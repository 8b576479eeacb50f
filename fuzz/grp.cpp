// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT

// Any bytes are a valid background package, which prints and draws, or give an error with a place. An input
// is the lengths of .GRP and .GAZ as 32-bit little-endian numbers, then these files, then .BAG.
#include "background/package/PackageProof.h"
#include "background/package/PackageReader.h"
#include "grpinfo/GeoJson.h"
#include "grpinfo/Summary.h"
#include "grpinfo/Svg.h"
#include "platform/Errors.h"
#include "support/TempFolder.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

using namespace vexlator;

namespace {

std::string_view Take(std::string_view& rest, std::size_t size) {
    std::string_view taken = rest.substr(0, size);
    rest.remove_prefix(taken.size());
    return taken;
}

std::uint32_t TakeNumber(std::string_view& rest) {
    std::uint32_t number = 0;
    std::string_view bytes = Take(rest, sizeof number);
    if (!bytes.empty()) std::memcpy(&number, bytes.data(), bytes.size());
    return number;
}

void Show(const background::PackageReader& package, const background::PackageCounts& counts,
          const test::TempFolder& folder) {
    grpinfo::SummaryText(package, counts);
    grpinfo::SummaryJson(package, counts);
    grpinfo::PrintGeoJson(package, [](std::string_view) {});
    grpinfo::WriteSvg(package, folder / "out.svg");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const test::TempFolder folder;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    std::uint32_t index = TakeNumber(rest), gazetteer = TakeNumber(rest);
    folder.Write("in.GRP", Take(rest, index));
    folder.Write("in.GAZ", Take(rest, gazetteer));
    folder.Write("in.BAG", rest);
    try {
        background::PackageReader package(folder / "in.GRP");
        Show(package, ProvePackage(package), folder);
    } catch (const platform::ReadError& error) {
        if (error.File().empty() || error.Reason().empty()) std::abort();
    }
    return 0;
}

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "grpinfo/Summary.h"

#include "util/JsonText.h"
#include "util/Numbers.h"

#include <string_view>
#include <utility>

namespace vexlator::grpinfo {

namespace {

using namespace background;

struct Count {
    const char* name;
    const char* label;
    std::uint64_t PackageCounts::*value;
};
constexpr Count counted[] = {
    {"packages", "packages", &PackageCounts::packages},
    {"tiles", "tile files", &PackageCounts::tiles},
    {"lines", "lines", &PackageCounts::lines},
    {"points", "points", &PackageCounts::points},
    {"vertices", "vertices", &PackageCounts::vertices},
    {"areas", "areas", &PackageCounts::areas},
    {"rings", "rings", &PackageCounts::rings},
    {"texts", "texts", &PackageCounts::texts},
    {"layerRecords", "layer records", &PackageCounts::layerRecords},
    {"searchValues", "search values", &PackageCounts::searchValues},
    {"images", "image tiles", &PackageCounts::images},
};

void AppendBox(std::string& out, const Box& box) {
    char separator = '[';
    for (double value : {box.minX, box.minY, box.maxX, box.maxY}) {
        out += separator;
        util::AppendNumber(out, value);
        separator = ',';
    }
    out += ']';
}

}  // namespace

std::string SummaryText(const PackageReader& package, const PackageCounts& counts) {
    std::string out = package.IndexName() + ": the package is whole\n";
    const Box& box = package.Extents();
    out += "extents        " + util::FormatFixed(box.minX, 3) + " " + util::FormatFixed(box.minY, 3) +
           " to " + util::FormatFixed(box.maxX, 3) + " " + util::FormatFixed(box.maxY, 3) + "\n";
    for (const Count& count : counted) {
        bool isRare = count.value == &PackageCounts::packages || count.value == &PackageCounts::images;
        if (isRare && counts.*count.value == 0) continue;
        std::string label = count.label;
        label.resize(15, ' ');
        out += label + util::GroupedCount(counts.*count.value) + "\n";
    }
    return out;
}

std::string SummaryJson(const PackageReader& package, const PackageCounts& counts) {
    std::string out = R"({"package":)";
    util::AppendText(out, package.IndexName());
    out += R"(,"extents":)";
    AppendBox(out, package.Extents());
    for (const Count& count : counted) {
        out += std::string(",\"") + count.name + "\":";
        util::AppendNumber(out, static_cast<std::int64_t>(counts.*count.value));
    }
    out += R"(,"members":[)";
    const char* separator = "\n";
    for (const IndexEntry& entry : package.Entries()) {
        out += separator;
        out += R"({"name":)";
        util::AppendText(out, entry.name);
        out += R"(,"kind":)" + std::to_string(entry.kind) + R"(,"box":)";
        AppendBox(out, entry.box);
        out += '}';
        separator = ",\n";
    }
    return out + "\n]}\n";
}

}  // namespace vexlator::grpinfo

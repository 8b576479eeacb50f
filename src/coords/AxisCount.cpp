// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/AxisCount.h"

#include "coords/ProjContext.h"

#include <string>

namespace vexlator::coords {

namespace {

constexpr std::size_t longestName = 400;

/// The name in the library's form; "" for a name that must not reach it, because it takes other texts for
/// operations or files.
std::string KnownSpelling(std::string_view name) {
    constexpr std::string_view oldEpsg = "http://www.opengis.net/gml/srs/epsg.xml#";
    if (name.size() > longestName) return "";
    if (name.starts_with(oldEpsg)) return "EPSG:" + std::string(name.substr(oldEpsg.size()));
    for (std::string_view begin : {"urn:", "http://www.opengis.net/", "https://www.opengis.net/", "EPSG:"})
        if (name.starts_with(begin)) return std::string(name);
    return "";
}

std::size_t AxesOf(PJ_CONTEXT* context, const PJ* system) {
    if (proj_get_type(system) != PJ_TYPE_COMPOUND_CRS) {
        ProjObject axes(proj_crs_get_coordinate_system(context, system));
        int count = axes ? proj_cs_get_axis_count(context, axes.get()) : 0;
        return count > 0 ? static_cast<std::size_t>(count) : 0;
    }
    std::size_t count = 0;
    for (int part = 0;; ++part) {
        ProjObject partSystem(proj_crs_get_sub_crs(context, system, part));
        if (!partSystem) return count;
        count += AxesOf(context, partSystem.get());
    }
}

}  // namespace

std::optional<std::size_t> AxisCount(std::string_view name) {
    // The German survey authorities join the names of a horizontal and a height system by an asterisk.
    if (name.starts_with("urn:adv:crs:")) return name.find('*') == std::string_view::npos ? 2 : 3;
    std::string known = KnownSpelling(name);
    if (known.empty()) return std::nullopt;
    ProjContext context({});
    ProjObject system = context.Create(known);
    if (!system || !proj_is_crs(system.get())) return std::nullopt;
    std::size_t count = AxesOf(context.Get(), system.get());
    return count >= 2 ? std::optional(count) : std::nullopt;
}

}  // namespace vexlator::coords

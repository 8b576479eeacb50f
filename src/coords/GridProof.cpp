// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/GridProof.h"

#include "coords/TiffMessages.h"
#include "util/Angles.h"
#include "util/Geometry.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace vexlator::coords {

namespace {

/// Nodes between neighbouring points of the net. No tile or strip of usual size fits between two of them.
constexpr int step = 64;

/// Places along one side of a grid, in degrees: near both ends, in the middle, and every few nodes.
std::vector<double> PlacesAlong(double begin, double end, int nodes) {
    constexpr double margin = 0.5;  // nodes; a shift can lead out of the grid at its edge
    double node = (end - begin) / std::max(nodes - 1, 1), first = begin + margin * node;
    std::vector<double> places{(begin + end) / 2, end - margin * node};
    for (int i = 0; i < nodes - 1; i += step) places.push_back(first + i * node);
    for (double& place : places) place *= util::degreesPerRadian;
    return places;
}

/// The middle comes first.
std::vector<util::PlanePoint> NetOver(const PJ_GRID_INFO& grid) {
    std::vector<util::PlanePoint> points;
    for (double y : PlacesAlong(grid.lowerleft.phi, grid.upperright.phi, grid.n_lat))
        for (double x : PlacesAlong(grid.lowerleft.lam, grid.upperright.lam, grid.n_lon))
            points.push_back({x, y});
    return points;
}

bool HasResult(const util::PlanePoint& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

std::string DamageOf(const std::string& file, PJ& operation) {
    proj_log_level(nullptr, PJ_LOG_NONE);  // the next call does not have our context
    PJ_GRID_INFO grid = proj_grid_info(file.c_str());
    if (grid.n_lon < 1 || grid.n_lat < 1) return "its header cannot be read";
    std::vector<util::PlanePoint> points = NetOver(grid);
    TakeTiffMessage();
    Transform(operation, Direction::ToGrid, {points, {}});
    std::string message = TakeTiffMessage();
    if (!message.empty()) return message;
    std::string_view format = grid.format;
    if (format == "gtiff")  // it can have nodes without values, and values that are never used
        return IsTiffCut(grid.filename) ? "the file ends before its last tile" : "";
    bool isWhole = format == "ntv2" ? std::ranges::all_of(points, HasResult) : HasResult(points[0]);
    return isWhole ? "" : "it has positions without a value";
}

}  // namespace

std::vector<std::string> GridFilesOf(const ProjContext& context, PJ& operation) {
    constexpr std::string_view key = "grids=";
    const char* text = proj_pj_info(&operation).definition;
    std::string_view definition = text ? text : "";
    std::vector<std::string> files;
    for (std::size_t at = definition.find(key); at != definition.npos; at = definition.find(key, at)) {
        at += key.size();
        std::string_view name = definition.substr(at, definition.find_first_of(" ,", at) - at);
        std::string path = context.FindInFolders(name);
        files.push_back(path.empty() ? std::string(name) : path);
    }
    return files;
}

DamagedGrid FindDamagedGrid(const ProjContext& context, PJ& operation) {
    for (const std::string& file : GridFilesOf(context, operation)) {
        std::string reason = DamageOf(file, operation);
        if (!reason.empty()) return {file, reason};
    }
    return {};
}

}  // namespace vexlator::coords

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/ProjContext.h"

#include "coords/TiffMessages.h"
#include "platform/Paths.h"
#include "util/Files.h"
#include "util/Paths.h"

#include <cmath>
#include <utility>

namespace vexlator::coords {

namespace {

bool IsPossible(Direction direction, const util::PlanePoint& point) {
    constexpr double mostGrid = 1e9;
    if (direction == Direction::ToGrid) return IsDegrees(point);
    return std::fabs(point.x) <= mostGrid && std::fabs(point.y) <= mostGrid;
}

}  // namespace

ProjContext::ProjContext(std::vector<std::string> folders)
    : folders_(std::move(folders)), context_(proj_context_create()) {
    proj_context_set_enable_network(context_, 0);
    proj_context_use_proj4_init_rules(context_, 1);  // "+init=epsg:27700" still occurs in old files
    proj_context_set_file_finder(context_, FindFile, this);
    proj_log_func(context_, this, TakeMessage);
    CatchTiffMessages();
}

ProjContext::~ProjContext() {
    proj_context_destroy(context_);
}

ProjObject ProjContext::Create(const std::string& definition) {
    reason_.clear();
    TakeTiffMessage();
    ProjObject object(proj_create(context_, definition.c_str()));
    if (!object && reason_.empty())
        reason_ = proj_context_errno_string(context_, proj_context_errno(context_));
    if (!object) NoteTiffMessage();
    return object;
}

void ProjContext::NoteTiffMessage() {
    std::string message = TakeTiffMessage();
    if (!message.empty()) reason_ += "; " + message;
}

bool ProjContext::CanReadGrids(PJ& operation) {
    // Any place on Earth will do. This one is valid in every angular unit.
    proj_trans(&operation, PJ_INV, proj_coord(0, 0, 0, HUGE_VAL));
    int error = proj_errno(&operation);
    proj_errno_reset(&operation);
    if (error != PROJ_ERR_INVALID_OP_FILE_NOT_FOUND_OR_INVALID) return true;
    reason_ = proj_context_errno_string(context_, error);
    NoteTiffMessage();
    return false;
}

std::string ProjContext::FindInFolders(std::string_view name) const {
    for (const std::string& folder : folders_) {
        std::string path = util::JoinPath(folder, name);
        if (util::FileSize(path) > 0) return platform::FindExisting(path);
    }
    return "";
}

const char* ProjContext::FindFile(PJ_CONTEXT*, const char* name, void* self) {
    auto& context = *static_cast<ProjContext*>(self);
    context.found_ = context.FindInFolders(name);
    return context.found_.empty() ? nullptr : context.found_.c_str();
}

void ProjContext::TakeMessage(void* self, int level, const char* text) {
    if (level == PJ_LOG_ERROR) static_cast<ProjContext*>(self)->reason_ = text;
}

void Transform(PJ& operation, Direction direction, Coordinates coordinates) {
    std::span<util::PlanePoint> points = coordinates.points;
    if (points.empty()) return;
    for (util::PlanePoint& point : points)
        if (!IsPossible(direction, point)) point = {HUGE_VAL, HUGE_VAL};
    double noHeight = 0, now = HUGE_VAL;  // a time of 0 would be the year 0
    bool hasHeights = !coordinates.heights.empty();
    double* heights = hasHeights ? coordinates.heights.data() : &noHeight;
    std::size_t count = points.size(), heightCount = hasHeights ? count : 1;
    constexpr std::size_t step = sizeof(util::PlanePoint), heightStep = sizeof(double);
    proj_errno_reset(&operation);
    proj_trans_generic(&operation, ProjDirection(direction), &points[0].x, step, count, &points[0].y, step,
                       count, heights, heightStep, heightCount, &now, 0, 1);
}

}  // namespace vexlator::coords

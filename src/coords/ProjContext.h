// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"

#include <memory>
#include <proj.h>
#include <string>
#include <string_view>
#include <vector>

/// The projection library, as far as coordinates need it. Only this folder knows it.
namespace vexlator::coords {

struct ProjDeleter {
    void operator()(PJ* object) const { proj_destroy(object); }
};
using ProjObject = std::unique_ptr<PJ, ProjDeleter>;

struct ProjListDeleter {
    void operator()(PJ_OBJ_LIST* list) const { proj_list_destroy(list); }
};
using ProjList = std::unique_ptr<PJ_OBJ_LIST, ProjListDeleter>;

/// The library's state for one thread. It looks for grids in our folders first, then in its own data folders
/// (PROJ_DATA, the user's, the system's), and never in the network. It prints nothing.
/// Everything made with it must go before it.
class ProjContext {
public:
    explicit ProjContext(std::vector<std::string> folders);
    ~ProjContext();
    ProjContext(const ProjContext&) = delete;
    ProjContext& operator=(const ProjContext&) = delete;

    PJ_CONTEXT* Get() { return context_; }
    /// A coordinate system or operation; null when the text means none, and Reason() says why.
    ProjObject Create(const std::string& definition);
    /// Whether the grids of an operation can be read. The library may open them only when the first point
    /// comes, and once that has failed it takes every shift for zero: ask before any point is converted.
    bool CanReadGrids(PJ& operation);
    /// Native path of a file that is there and not empty, from the first of our folders that has it; else "".
    std::string FindInFolders(std::string_view name) const;
    /// What the library complained of last.
    const std::string& Reason() const { return reason_; }

private:
    void NoteTiffMessage();
    static const char* FindFile(PJ_CONTEXT*, const char* name, void* self);
    static void TakeMessage(void* self, int level, const char* text);

    std::vector<std::string> folders_;
    std::string found_;  ///< what FindFile returned last; the library copies it
    std::string reason_;
    PJ_CONTEXT* context_;
};

/// The library's word for a direction of operations that lead from the grid to longitude and latitude.
constexpr PJ_DIRECTION ProjDirection(Direction direction) {
    return direction == Direction::ToLatLng ? PJ_FWD : PJ_INV;
}

/// Applies an operation that leads from the grid to longitude and latitude, or its inverse. Degrees outside
/// 360 by 90 and grid values beyond 10^9, which the library would wrap around the world, count as impossible.
void Transform(PJ& operation, Direction direction, Coordinates coordinates);

}  // namespace vexlator::coords

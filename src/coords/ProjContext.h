// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "coords/Backend.h"
#include "coords/Proj.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

/// The part of the projection library that coordinates need. Only this folder knows the library.
namespace vexlator::coords {

struct ProjDeleter {
    void operator()(PJ* object) const { proj_destroy(object); }
};
using ProjObject = std::unique_ptr<PJ, ProjDeleter>;

struct ProjListDeleter {
    void operator()(PJ_OBJ_LIST* list) const { proj_list_destroy(list); }
};
using ProjList = std::unique_ptr<PJ_OBJ_LIST, ProjListDeleter>;

/// The library's state for one thread. It searches for grids in our folders, then in its own data folders
/// (PROJ_DATA, the user's, the system's), and never in the network. It prints nothing. It must outlive
/// everything made with it.
class ProjContext {
public:
    explicit ProjContext(std::vector<std::string> folders);
    ~ProjContext();
    ProjContext(const ProjContext&) = delete;
    ProjContext& operator=(const ProjContext&) = delete;

    PJ_CONTEXT* Get() { return context_; }
    /// A coordinate system or operation; null for an invalid text, with the reason in Reason().
    ProjObject Create(const std::string& definition);
    /// Whether the grids of an operation can be read. The library may open them at the first point, and after
    /// a failure it takes every shift for zero. So ask before converting points.
    bool CanReadGrids(PJ& operation);
    /// Native path of an existing file that is not empty, in the first of our folders with it; else "".
    std::string FindInFolders(std::string_view name) const;
    /// The library's last error message.
    const std::string& Reason() const { return reason_; }

private:
    void NoteTiffMessage();
    static const char* FindFile(PJ_CONTEXT*, const char* name, void* self);
    static void TakeMessage(void* self, int level, const char* text);

    std::vector<std::string> folders_;
    std::string found_;  ///< result of the last FindFile; the library copies it
    std::string reason_;
    PJ_CONTEXT* context_;
};

/// The library's direction for operations from the grid to longitude and latitude.
constexpr PJ_DIRECTION ProjDirection(Direction direction) {
    return direction == Direction::ToLatLng ? PJ_FWD : PJ_INV;
}

/// Applies an operation from the grid to longitude and latitude, or its inverse. Degrees outside 360 by 90
/// and grid values beyond 10^9, which the library would wrap around the world, count as impossible.
void Transform(PJ& operation, Direction direction, Coordinates coordinates);

}  // namespace vexlator::coords

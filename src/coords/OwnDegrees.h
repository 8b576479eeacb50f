// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "util/Geometry.h"

#include <memory>
#include <optional>
#include <string>

namespace vexlator::coords {

/// Latitude and longitude on a coordinate system's own datum, without a change of datum: what files want that
/// name the system beside them.
class OwnDegrees {
public:
    /// @param definition as in a definition file; one that is no coordinate system is not known
    explicit OwnDegrees(const std::string& definition);
    ~OwnDegrees();
    OwnDegrees(const OwnDegrees&) = delete;
    OwnDegrees& operator=(const OwnDegrees&) = delete;

    bool IsKnown() const;
    /// False for a system of latitude and longitude.
    bool IsProjected() const;
    /// The system as ESRI WKT; "" if it is not known.
    const std::string& Text() const;

    /// In degrees.
    struct Place {
        double latitude, longitude;
    };
    /// Nothing for a position without one.
    std::optional<Place> Of(util::PlanePoint position);

private:
    struct System;
    std::unique_ptr<System> system_;
};

}  // namespace vexlator::coords

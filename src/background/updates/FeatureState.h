// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "formats/gml/GmlFeature.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

namespace vexlator::background {

/// The digits that identify a feature of national topography; "" when it has none.
std::string ToidOf(const formats::GmlFeature& feature);
/// Whether an update tells with it that a feature is gone.
bool IsDeparted(const formats::GmlFeature& feature);

/// What features of a package's sources came to.
struct UpdateCounts {
    std::uint64_t taken = 0;
    std::uint64_t notNewer = 0;  ///< the state holds the feature in this version or a newer one
    std::uint64_t departed = 0;  ///< features of the state that are gone
};

/// The features of one package by their TOIDs, as supplies and change-only updates left them, in an SQLite
/// database that docs/package-format.md describes. Changes count with Commit(), all of them or none.
/// @throws platform::WriteError with path and reason from every member, also for a file that is no state
class FeatureState {
public:
    /// @param path path text of the database, which is made when missing; "" for one that goes with the
    /// object. No other program changes it while the object lives.
    explicit FeatureState(std::string_view path);
    ~FeatureState();
    FeatureState(const FeatureState&) = delete;
    FeatureState& operator=(const FeatureState&) = delete;

    /// Path text of the package that the state was last committed for; "" for none.
    std::string Package() const;
    void SetPackage(std::string_view path);
    /// Whether any source has been taken.
    bool HoldsSources() const;
    /// Forgets features and sources.
    void Clear();
    /// Notes a source. False when one of this content has been taken before.
    bool TakeSource(std::string_view name, std::span<const std::byte> content);

    /// A feature replaces that of its TOID when its version is newer; one that has departed takes that away.
    /// Features without a TOID are added.
    void Apply(const formats::GmlFeature& feature, UpdateCounts& counts);
    /// The features in the order of their TOIDs, then those without in the order in which they came.
    /// `bytesRead` bounds what a feature may repeat.
    void ForEachFeature(
        const std::function<void(formats::GmlFeature& feature, std::size_t bytesRead)>& visit);
    void Commit();

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace vexlator::background

// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/SystemComparison.h"

#include "coords/CoordinateOperation.h"
#include "util/Text.h"

namespace vexlator::coords {

namespace {

constexpr double metresPerFoot = 0.3048;

/// Whether a name stands for a missing name.
bool IsNoName(const std::string& name) {
    if (name.empty()) return true;
    for (const char* word : {"unknown", "unnamed", "not specified", "not_specified"})
        if (util::InStrNoCase(name, word) > 0) return true;
    return false;
}

/// East first, as in files.
ProjObject EastFirst(ProjContext& context, const ProjObject& system) {
    ProjObject base = WithoutShift(context, system);
    return ProjObject(base ? proj_normalize_for_visualization(context.Get(), base.get()) : nullptr);
}

bool AreEquivalent(ProjContext& context, const ProjObject& one, const ProjObject& other) {
    return one && other &&
           proj_is_equivalent_to_with_ctx(context.Get(), one.get(), other.get(), PJ_COMP_EQUIVALENT) != 0;
}

bool HasUnknownDatum(ProjContext& context, const ProjObject& system) {
    ProjObject geodetic(proj_crs_get_geodetic_crs(context.Get(), system.get()));
    ProjObject datum(geodetic ? proj_crs_get_datum_forced(context.Get(), geodetic.get()) : nullptr);
    return !datum || IsNoName(proj_get_name(datum.get()));
}

/// PROJ strings and many programs omit the datum, the position of the ellipsoid.
bool AreSameButForDatum(ProjContext& context, const ProjObject& one, const ProjObject& other) {
    auto sameParts = [&](const auto& partOf) {
        return AreEquivalent(context, ProjObject(partOf(context.Get(), one.get())),
                             ProjObject(partOf(context.Get(), other.get())));
    };
    return sameParts(proj_get_ellipsoid) && sameParts(proj_crs_get_coordinate_system) &&
           (IsGeographic(context, one) || sameParts(proj_crs_get_coordoperation));
}

}  // namespace

bool AreSame(ProjContext& context, const ProjObject& one, const ProjObject& other) {
    ProjObject first = EastFirst(context, one), second = EastFirst(context, other);
    if (!first || !second) return false;
    if (AreEquivalent(context, first, second)) return true;
    bool open = HasUnknownDatum(context, first) || HasUnknownDatum(context, second);
    return open && AreSameButForDatum(context, first, second);
}

bool IsGeographic(ProjContext& context, const ProjObject& system) {
    return proj_get_type(WithoutShift(context, system).get()) != PJ_TYPE_PROJECTED_CRS;
}

ProjObject InFeet(ProjContext& context, const ProjObject& system) {
    return ProjObject(proj_crs_alter_cs_linear_unit(context.Get(), WithoutShift(context, system).get(),
                                                    "foot", metresPerFoot, nullptr, nullptr));
}

std::string NameOf(const ProjObject& system, const std::string& otherwise) {
    std::string name = proj_get_name(system.get());
    return IsNoName(name) ? otherwise : name;
}

}  // namespace vexlator::coords

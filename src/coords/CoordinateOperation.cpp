// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#include "coords/CoordinateOperation.h"

#include "platform/CodePages.h"
#include "platform/Paths.h"
#include "util/Text.h"

#include <memory>
#include <utility>

namespace vexlator::coords {

namespace {

struct FactoryDeleter {
    void operator()(PJ_OPERATION_FACTORY_CONTEXT* factory) const {
        proj_operation_factory_context_destroy(factory);
    }
};
using Factory = std::unique_ptr<PJ_OPERATION_FACTORY_CONTEXT, FactoryDeleter>;

/// Names alone are not accepted, because the library would choose a system with a similar name.
bool MayDefine(const std::string& text) {
    return text.find_first_of("[{=:") != std::string::npos;
}

/// A bare number is an EPSG code. A projection means a coordinate system with this projection.
std::string Completed(const std::string& definition) {
    if (!definition.empty() && definition.find_first_not_of("0123456789") == std::string::npos)
        return "EPSG:" + definition;
    bool projString = definition.starts_with('+') || definition.starts_with("proj=");
    if (!projString || util::CountOf(definition, "proj=pipeline") > 0 ||
        util::CountOf(definition, "type=") > 0)
        return definition;
    return definition + " +type=crs";
}

bool IsOperation(PJ* object) {
    switch (proj_get_type(object)) {
        case PJ_TYPE_CONVERSION:
        case PJ_TYPE_TRANSFORMATION:
        case PJ_TYPE_CONCATENATED_OPERATION:
        case PJ_TYPE_OTHER_COORDINATE_OPERATION:
            return true;
        default:
            return false;
    }
}

bool HasHeights(PJ* system) {
    PJ_TYPE type = proj_get_type(system);
    return type == PJ_TYPE_COMPOUND_CRS || type == PJ_TYPE_GEOGRAPHIC_3D_CRS;
}

/// The operations, best first.
ProjList KnownOperations(PJ_CONTEXT* context, PJ* from, PJ* to, PROJ_GRID_AVAILABILITY_USE grids) {
    Factory factory(proj_create_operation_factory_context(context, nullptr));
    proj_operation_factory_context_set_spatial_criterion(context, factory.get(),
                                                         PROJ_SPATIAL_CRITERION_PARTIAL_INTERSECTION);
    proj_operation_factory_context_set_grid_availability_use(context, factory.get(), grids);
    proj_operation_factory_context_set_allow_ballpark_transformations(context, factory.get(), 0);
    return ProjList(proj_create_operations(context, from, to, factory.get()));
}

std::vector<std::string> MissingGrids(PJ_CONTEXT* context, PJ* operation) {
    std::vector<std::string> missing;
    int count = proj_coordoperation_get_grid_used_count(context, operation);
    for (int i = 0; i < count; ++i) {
        const char* name = nullptr;
        int available = 0;
        if (proj_coordoperation_get_grid_used(context, operation, i, &name, nullptr, nullptr, nullptr,
                                              nullptr, nullptr, &available) &&
            !available)
            missing.emplace_back(name);
    }
    return missing;
}

/// Order of values: easting and northing, or longitude and latitude, in degrees.
ProjObject Normalized(PJ_CONTEXT* context, const ProjObject& object) {
    return ProjObject(object ? proj_normalize_for_visualization(context, object.get()) : nullptr);
}

/// The candidate operations of one made by proj_create_crs_to_crs.
ProjList AvailableOperations(PJ_CONTEXT* context, const ProjObject& from, const ProjObject& to) {
    ProjObject source = Normalized(context, from), target = Normalized(context, to);
    if (!source || !target) return nullptr;
    return KnownOperations(context, source.get(), target.get(),
                           PROJ_GRID_AVAILABILITY_DISCARD_OPERATION_IF_MISSING_GRID);
}

CoordinateOperation FromSystem(ProjContext& context, ProjObject system) {
    ProjObject target = context.Create(HasHeights(system.get()) ? "EPSG:4979" : "EPSG:4326");
    if (target) return OperationBetween(context, std::move(system), std::move(target));
    CoordinateOperation result;
    result.reason = context.Reason();
    return result;
}

/// The horizontal part of a system; null: the whole system is horizontal.
ProjObject PlanePart(PJ_CONTEXT* context, PJ* system) {
    switch (proj_get_type(system)) {
        case PJ_TYPE_COMPOUND_CRS:
            return ProjObject(proj_crs_get_sub_crs(context, system, 0));
        case PJ_TYPE_GEOGRAPHIC_3D_CRS:
            return ProjObject(proj_crs_demote_to_2D(context, nullptr, system));
        default:
            return nullptr;
    }
}

}  // namespace

std::string MissingGridsText(const CoordinateOperation& loaded, const std::string& folderForGrids) {
    bool isOne = loaded.missingGrids.size() == 1;
    std::string names;
    for (const std::string& grid : loaded.missingGrids) names += (names.empty() ? "" : " and ") + grid;
    return "the best transformation needs the " + std::string(isOne ? "grid " : "grids ") + names +
           (isOne ? ", which is missing; put it into " : ", which are missing; put them into ") +
           platform::NativePath(folderForGrids) + "; without it " +
           (loaded.operation ? "coordinates may be metres off" : "no coordinate is converted");
}

std::string DefinitionText(std::string_view content) {
    constexpr std::string_view blanks(" \t\r\n\0", 5);
    content = util::Trim(platform::WithoutByteOrderMark(content), blanks);
    if (content.starts_with('"')) {
        content.remove_prefix(1);
        if (!content.empty()) content.remove_suffix(1);
        content = util::Trim(content, blanks);
    }
    return platform::IsUtf8(content) ? std::string(content) : platform::Utf8FromWindows1252(content);
}

CoordinateOperation OperationFor(ProjContext& context, const std::string& definition) {
    CoordinateOperation result;
    std::string text = Completed(definition);
    if (!MayDefine(text)) {
        result.reason = "neither an EPSG code nor WKT nor a PROJ string";
        return result;
    }
    ProjObject object = context.Create(text);
    if (object && proj_is_crs(object.get())) return FromSystem(context, std::move(object));
    if (object && proj_angular_output(object.get(), PJ_FWD))
        object = context.Create(text + " +step +proj=unitconvert +xy_in=rad +xy_out=deg");
    if (object && IsOperation(object.get()) && !context.CanReadGrids(*object)) object.reset();
    if (!object)
        result.reason = context.Reason();
    else if (!IsOperation(object.get()))
        result.reason = "neither a coordinate system nor an operation";
    else
        result.operation = ArrayOperation(context, std::move(object));
    return result;
}

CoordinateOperation OperationBetween(ProjContext& context, ProjObject from, ProjObject to) {
    CoordinateOperation result;
    PJ_CONTEXT* proj = context.Get();
    ProjList known = KnownOperations(proj, from.get(), to.get(), PROJ_GRID_AVAILABILITY_IGNORED);
    if (!known || proj_list_get_count(known.get()) == 0) {
        result.reason = std::string("no transformation to ") + proj_get_name(to.get()) + " is known";
        return result;
    }
    ProjObject best(proj_list_get(proj, known.get(), 0));
    ArrayOperation::ListChoices choices;
    result.missingGrids = MissingGrids(proj, best.get());
    bool bestHasGrids = proj_coordoperation_get_grid_used_count(proj, best.get()) > 0;
    if (!bestHasGrids || !result.missingGrids.empty()) {
        // Several operations can share the area. The library chooses one for each point by its area.
        const char* const options[] = {"ALLOW_BALLPARK=NO", nullptr};
        best.reset(proj_create_crs_to_crs_from_pj(proj, from.get(), to.get(), nullptr, options));
        auto ends = std::make_shared<std::pair<ProjObject, ProjObject>>(std::move(from), std::move(to));
        choices = [proj, ends] { return AvailableOperations(proj, ends->first, ends->second); };
    }
    ProjObject operation = Normalized(proj, best);
    if (operation && context.CanReadGrids(*operation))
        result.operation = ArrayOperation(context, std::move(operation), std::move(choices));
    else
        result.reason = context.Reason();
    return result;
}

ProjObject PlaneSystem(ProjContext& context, const std::string& definition) {
    std::string text = Completed(definition);
    ProjObject system = MayDefine(text) ? context.Create(text) : nullptr;
    ProjObject part = system ? PlanePart(context.Get(), system.get()) : nullptr;
    if (part) system = std::move(part);
    ProjObject base = WithoutShift(context, system);
    PJ_TYPE type = base ? proj_get_type(base.get()) : PJ_TYPE_UNKNOWN;
    if (type != PJ_TYPE_PROJECTED_CRS && type != PJ_TYPE_GEOGRAPHIC_2D_CRS) system.reset();
    return system;
}

ProjObject WithoutShift(ProjContext& context, const ProjObject& system) {
    if (!system) return nullptr;
    bool bound = proj_get_type(system.get()) == PJ_TYPE_BOUND_CRS;
    return ProjObject(bound ? proj_get_source_crs(context.Get(), system.get())
                            : proj_clone(context.Get(), system.get()));
}

bool IsDefinition(const std::string& text) {
    ProjContext context({});
    std::string completed = Completed(DefinitionText(text));
    return MayDefine(completed) && context.Create(completed) != nullptr;
}

}  // namespace vexlator::coords

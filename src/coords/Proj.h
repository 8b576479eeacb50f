// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LateLibrary.h"

#include <proj.h>
#include <proj_experimental.h>

/// The functions of the projection library that are used here. It brings thirty libraries with it, and most
/// runs convert no coordinates.
namespace vexlator::coords {

template <typename Signature>
using ProjFunction = platform::LateFunction<Signature>;

inline const ProjFunction<decltype(::proj_angular_output)> proj_angular_output{VEXLATOR_PROJ_LIBRARY,
                                                                               "proj_angular_output"};
inline const ProjFunction<decltype(::proj_as_wkt)> proj_as_wkt{VEXLATOR_PROJ_LIBRARY, "proj_as_wkt"};
inline const ProjFunction<decltype(::proj_clone)> proj_clone{VEXLATOR_PROJ_LIBRARY, "proj_clone"};
inline const ProjFunction<decltype(::proj_context_create)> proj_context_create{VEXLATOR_PROJ_LIBRARY,
                                                                               "proj_context_create"};
inline const ProjFunction<decltype(::proj_context_destroy)> proj_context_destroy{VEXLATOR_PROJ_LIBRARY,
                                                                                 "proj_context_destroy"};
inline const ProjFunction<decltype(::proj_context_errno)> proj_context_errno{VEXLATOR_PROJ_LIBRARY,
                                                                             "proj_context_errno"};
inline const ProjFunction<decltype(::proj_context_errno_string)> proj_context_errno_string{
    VEXLATOR_PROJ_LIBRARY, "proj_context_errno_string"};
inline const ProjFunction<decltype(::proj_context_set_enable_network)> proj_context_set_enable_network{
    VEXLATOR_PROJ_LIBRARY, "proj_context_set_enable_network"};
inline const ProjFunction<decltype(::proj_context_set_file_finder)> proj_context_set_file_finder{
    VEXLATOR_PROJ_LIBRARY, "proj_context_set_file_finder"};
inline const ProjFunction<decltype(::proj_context_use_proj4_init_rules)> proj_context_use_proj4_init_rules{
    VEXLATOR_PROJ_LIBRARY, "proj_context_use_proj4_init_rules"};
inline const ProjFunction<decltype(::proj_coord)> proj_coord{VEXLATOR_PROJ_LIBRARY, "proj_coord"};
inline const ProjFunction<decltype(::proj_coordoperation_get_grid_used)> proj_coordoperation_get_grid_used{
    VEXLATOR_PROJ_LIBRARY, "proj_coordoperation_get_grid_used"};
inline const ProjFunction<decltype(::proj_coordoperation_get_grid_used_count)>
    proj_coordoperation_get_grid_used_count{VEXLATOR_PROJ_LIBRARY, "proj_coordoperation_get_grid_used_count"};
inline const ProjFunction<decltype(::proj_create)> proj_create{VEXLATOR_PROJ_LIBRARY, "proj_create"};
inline const ProjFunction<decltype(::proj_create_crs_to_crs_from_pj)> proj_create_crs_to_crs_from_pj{
    VEXLATOR_PROJ_LIBRARY, "proj_create_crs_to_crs_from_pj"};
inline const ProjFunction<decltype(::proj_create_operation_factory_context)>
    proj_create_operation_factory_context{VEXLATOR_PROJ_LIBRARY, "proj_create_operation_factory_context"};
inline const ProjFunction<decltype(::proj_create_operations)> proj_create_operations{
    VEXLATOR_PROJ_LIBRARY, "proj_create_operations"};
inline const ProjFunction<decltype(::proj_crs_alter_cs_linear_unit)> proj_crs_alter_cs_linear_unit{
    VEXLATOR_PROJ_LIBRARY, "proj_crs_alter_cs_linear_unit"};
inline const ProjFunction<decltype(::proj_crs_demote_to_2D)> proj_crs_demote_to_2D{VEXLATOR_PROJ_LIBRARY,
                                                                                   "proj_crs_demote_to_2D"};
inline const ProjFunction<decltype(::proj_crs_get_coordinate_system)> proj_crs_get_coordinate_system{
    VEXLATOR_PROJ_LIBRARY, "proj_crs_get_coordinate_system"};
inline const ProjFunction<decltype(::proj_crs_get_coordoperation)> proj_crs_get_coordoperation{
    VEXLATOR_PROJ_LIBRARY, "proj_crs_get_coordoperation"};
inline const ProjFunction<decltype(::proj_crs_get_datum_forced)> proj_crs_get_datum_forced{
    VEXLATOR_PROJ_LIBRARY, "proj_crs_get_datum_forced"};
inline const ProjFunction<decltype(::proj_crs_get_geodetic_crs)> proj_crs_get_geodetic_crs{
    VEXLATOR_PROJ_LIBRARY, "proj_crs_get_geodetic_crs"};
inline const ProjFunction<decltype(::proj_crs_get_sub_crs)> proj_crs_get_sub_crs{VEXLATOR_PROJ_LIBRARY,
                                                                                 "proj_crs_get_sub_crs"};
inline const ProjFunction<decltype(::proj_cs_get_axis_count)> proj_cs_get_axis_count{
    VEXLATOR_PROJ_LIBRARY, "proj_cs_get_axis_count"};
inline const ProjFunction<decltype(::proj_cs_get_axis_info)> proj_cs_get_axis_info{VEXLATOR_PROJ_LIBRARY,
                                                                                   "proj_cs_get_axis_info"};
inline const ProjFunction<decltype(::proj_destroy)> proj_destroy{VEXLATOR_PROJ_LIBRARY, "proj_destroy"};
inline const ProjFunction<decltype(::proj_errno)> proj_errno{VEXLATOR_PROJ_LIBRARY, "proj_errno"};
inline const ProjFunction<decltype(::proj_errno_reset)> proj_errno_reset{VEXLATOR_PROJ_LIBRARY,
                                                                         "proj_errno_reset"};
inline const ProjFunction<decltype(::proj_get_ellipsoid)> proj_get_ellipsoid{VEXLATOR_PROJ_LIBRARY,
                                                                             "proj_get_ellipsoid"};
inline const ProjFunction<decltype(::proj_get_id_auth_name)> proj_get_id_auth_name{VEXLATOR_PROJ_LIBRARY,
                                                                                   "proj_get_id_auth_name"};
inline const ProjFunction<decltype(::proj_get_id_code)> proj_get_id_code{VEXLATOR_PROJ_LIBRARY,
                                                                         "proj_get_id_code"};
inline const ProjFunction<decltype(::proj_get_name)> proj_get_name{VEXLATOR_PROJ_LIBRARY, "proj_get_name"};
inline const ProjFunction<decltype(::proj_get_source_crs)> proj_get_source_crs{VEXLATOR_PROJ_LIBRARY,
                                                                               "proj_get_source_crs"};
inline const ProjFunction<decltype(::proj_get_suggested_operation)> proj_get_suggested_operation{
    VEXLATOR_PROJ_LIBRARY, "proj_get_suggested_operation"};
inline const ProjFunction<decltype(::proj_get_type)> proj_get_type{VEXLATOR_PROJ_LIBRARY, "proj_get_type"};
inline const ProjFunction<decltype(::proj_grid_info)> proj_grid_info{VEXLATOR_PROJ_LIBRARY, "proj_grid_info"};
inline const ProjFunction<decltype(::proj_identify)> proj_identify{VEXLATOR_PROJ_LIBRARY, "proj_identify"};
inline const ProjFunction<decltype(::proj_int_list_destroy)> proj_int_list_destroy{VEXLATOR_PROJ_LIBRARY,
                                                                                   "proj_int_list_destroy"};
inline const ProjFunction<decltype(::proj_is_crs)> proj_is_crs{VEXLATOR_PROJ_LIBRARY, "proj_is_crs"};
inline const ProjFunction<decltype(::proj_is_equivalent_to_with_ctx)> proj_is_equivalent_to_with_ctx{
    VEXLATOR_PROJ_LIBRARY, "proj_is_equivalent_to_with_ctx"};
inline const ProjFunction<decltype(::proj_list_destroy)> proj_list_destroy{VEXLATOR_PROJ_LIBRARY,
                                                                           "proj_list_destroy"};
inline const ProjFunction<decltype(::proj_list_ellps)> proj_list_ellps{VEXLATOR_PROJ_LIBRARY,
                                                                       "proj_list_ellps"};
inline const ProjFunction<decltype(::proj_list_get)> proj_list_get{VEXLATOR_PROJ_LIBRARY, "proj_list_get"};
inline const ProjFunction<decltype(::proj_list_get_count)> proj_list_get_count{VEXLATOR_PROJ_LIBRARY,
                                                                               "proj_list_get_count"};
inline const ProjFunction<decltype(::proj_log_func)> proj_log_func{VEXLATOR_PROJ_LIBRARY, "proj_log_func"};
inline const ProjFunction<decltype(::proj_log_level)> proj_log_level{VEXLATOR_PROJ_LIBRARY, "proj_log_level"};
inline const ProjFunction<decltype(::proj_normalize_for_visualization)> proj_normalize_for_visualization{
    VEXLATOR_PROJ_LIBRARY, "proj_normalize_for_visualization"};
inline const ProjFunction<decltype(::proj_operation_factory_context_destroy)>
    proj_operation_factory_context_destroy{VEXLATOR_PROJ_LIBRARY, "proj_operation_factory_context_destroy"};
inline const ProjFunction<decltype(::proj_operation_factory_context_set_allow_ballpark_transformations)>
    proj_operation_factory_context_set_allow_ballpark_transformations{
        VEXLATOR_PROJ_LIBRARY, "proj_operation_factory_context_set_allow_ballpark_transformations"};
inline const ProjFunction<decltype(::proj_operation_factory_context_set_grid_availability_use)>
    proj_operation_factory_context_set_grid_availability_use{
        VEXLATOR_PROJ_LIBRARY, "proj_operation_factory_context_set_grid_availability_use"};
inline const ProjFunction<decltype(::proj_operation_factory_context_set_spatial_criterion)>
    proj_operation_factory_context_set_spatial_criterion{
        VEXLATOR_PROJ_LIBRARY, "proj_operation_factory_context_set_spatial_criterion"};
inline const ProjFunction<decltype(::proj_pj_info)> proj_pj_info{VEXLATOR_PROJ_LIBRARY, "proj_pj_info"};
inline const ProjFunction<decltype(::proj_trans)> proj_trans{VEXLATOR_PROJ_LIBRARY, "proj_trans"};
inline const ProjFunction<decltype(::proj_trans_generic)> proj_trans_generic{VEXLATOR_PROJ_LIBRARY,
                                                                             "proj_trans_generic"};

}  // namespace vexlator::coords

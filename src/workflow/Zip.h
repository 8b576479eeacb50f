// SPDX-FileCopyrightText: The Vexlator authors
// SPDX-License-Identifier: MIT
#pragma once

#include "platform/LateLibrary.h"

#include <zip.h>

/// The functions of the ZIP library that are used here. It brings cryptography with it, and few runs pack
/// anything.
namespace vexlator::workflow {

template <typename Signature>
using ZipFunction = platform::LateFunction<Signature>;

inline const ZipFunction<decltype(::zip_close)> zip_close{VEXLATOR_LIBZIP_LIBRARY, "zip_close"};
inline const ZipFunction<decltype(::zip_discard)> zip_discard{VEXLATOR_LIBZIP_LIBRARY, "zip_discard"};
inline const ZipFunction<decltype(::zip_error_fini)> zip_error_fini{VEXLATOR_LIBZIP_LIBRARY,
                                                                    "zip_error_fini"};
inline const ZipFunction<decltype(::zip_error_init_with_code)> zip_error_init_with_code{
    VEXLATOR_LIBZIP_LIBRARY, "zip_error_init_with_code"};
inline const ZipFunction<decltype(::zip_error_set)> zip_error_set{VEXLATOR_LIBZIP_LIBRARY, "zip_error_set"};
inline const ZipFunction<decltype(::zip_error_strerror)> zip_error_strerror{VEXLATOR_LIBZIP_LIBRARY,
                                                                            "zip_error_strerror"};
inline const ZipFunction<decltype(::zip_error_to_data)> zip_error_to_data{VEXLATOR_LIBZIP_LIBRARY,
                                                                          "zip_error_to_data"};
inline const ZipFunction<decltype(::zip_fclose)> zip_fclose{VEXLATOR_LIBZIP_LIBRARY, "zip_fclose"};
inline const ZipFunction<decltype(::zip_file_add)> zip_file_add{VEXLATOR_LIBZIP_LIBRARY, "zip_file_add"};
inline const ZipFunction<decltype(::zip_file_get_external_attributes)> zip_file_get_external_attributes{
    VEXLATOR_LIBZIP_LIBRARY, "zip_file_get_external_attributes"};
inline const ZipFunction<decltype(::zip_file_strerror)> zip_file_strerror{VEXLATOR_LIBZIP_LIBRARY,
                                                                          "zip_file_strerror"};
inline const ZipFunction<decltype(::zip_fopen_index)> zip_fopen_index{VEXLATOR_LIBZIP_LIBRARY,
                                                                      "zip_fopen_index"};
inline const ZipFunction<decltype(::zip_fread)> zip_fread{VEXLATOR_LIBZIP_LIBRARY, "zip_fread"};
inline const ZipFunction<decltype(::zip_get_num_entries)> zip_get_num_entries{VEXLATOR_LIBZIP_LIBRARY,
                                                                              "zip_get_num_entries"};
inline const ZipFunction<decltype(::zip_open)> zip_open{VEXLATOR_LIBZIP_LIBRARY, "zip_open"};
inline const ZipFunction<decltype(::zip_open_from_source)> zip_open_from_source{VEXLATOR_LIBZIP_LIBRARY,
                                                                                "zip_open_from_source"};
inline const ZipFunction<decltype(::zip_source_file)> zip_source_file{VEXLATOR_LIBZIP_LIBRARY,
                                                                      "zip_source_file"};
inline const ZipFunction<decltype(::zip_source_free)> zip_source_free{VEXLATOR_LIBZIP_LIBRARY,
                                                                      "zip_source_free"};
inline const ZipFunction<decltype(::zip_source_function_create)> zip_source_function_create{
    VEXLATOR_LIBZIP_LIBRARY, "zip_source_function_create"};
inline const ZipFunction<decltype(::zip_source_seek_compute_offset)> zip_source_seek_compute_offset{
    VEXLATOR_LIBZIP_LIBRARY, "zip_source_seek_compute_offset"};
inline const ZipFunction<decltype(::zip_stat_index)> zip_stat_index{VEXLATOR_LIBZIP_LIBRARY,
                                                                    "zip_stat_index"};
inline const ZipFunction<decltype(::zip_strerror)> zip_strerror{VEXLATOR_LIBZIP_LIBRARY, "zip_strerror"};

}  // namespace vexlator::workflow

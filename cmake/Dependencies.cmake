# All external libraries, each from Debian's packages (scripts/setup installs them; docs/dependencies.md says why each
# is needed).
find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
pkg_check_modules(PROJ REQUIRED IMPORTED_TARGET proj>=9.1)
pkg_check_modules(TIFF REQUIRED IMPORTED_TARGET libtiff-4)
pkg_check_modules(ODBC REQUIRED IMPORTED_TARGET odbc)
pkg_check_modules(SQLITE3 REQUIRED IMPORTED_TARGET sqlite3)
pkg_check_modules(LIBZIP REQUIRED IMPORTED_TARGET libzip)
pkg_check_modules(TURBOJPEG REQUIRED IMPORTED_TARGET libturbojpeg)
pkg_check_modules(LIBXML2 REQUIRED IMPORTED_TARGET libxml-2.0)
pkg_check_modules(ZLIB REQUIRED IMPORTED_TARGET zlib)
pkg_check_modules(XXHASH REQUIRED IMPORTED_TARGET libxxhash)
pkg_check_modules(XLSXWRITER REQUIRED IMPORTED_TARGET xlsxwriter)
pkg_check_modules(GDAL REQUIRED IMPORTED_TARGET gdal>=3.6)  # helper programs only
find_package(simdjson REQUIRED)
find_package(Qt6 6.4 REQUIRED COMPONENTS Gui Svg Widgets Test LinguistTools)
# What includes Qt is compiled with options of Qt's own, and so are the headers that are compiled once for it.
if(VEXLATOR_PRECOMPILED)
  vexlator_precompiled(vexlator_qt_headers ${VEXLATOR_STANDARD_HEADERS} <QPainter>)
  target_link_libraries(vexlator_qt_headers PRIVATE Qt6::Gui)
endif()
find_program(FLATC flatc REQUIRED)
find_path(FLATBUFFERS_INCLUDE flatbuffers/flatbuffers.h REQUIRED)

# vexlator_late(NAME LIBRARY...): vexlator_NAME does not link these libraries, but loads them when it needs them
# (platform/LateLibrary.h), by names that the loader knows: VEXLATOR_<LIBRARY>_LIBRARY.
function(vexlator_late name)
  foreach(library ${ARGN})
    list(GET ${library}_LINK_LIBRARIES 0 path)
    file(REAL_PATH "${path}" path)
    string(REGEX MATCH "[^/]+\\.so\\.[0-9]+" loaded "${path}")
    if(NOT loaded)
      message(FATAL_ERROR "${path} is no shared library with a version")
    endif()
    target_compile_definitions(vexlator_${name} PUBLIC VEXLATOR_${library}_LIBRARY="${loaded}")
    target_include_directories(vexlator_${name} SYSTEM PUBLIC ${${library}_INCLUDE_DIRS})
  endforeach()
endfunction()

# vexlator_flatbuffers(TARGET SCHEMA.fbs): generates SCHEMA_generated.h, private to the target.
function(vexlator_flatbuffers target schema)
  cmake_path(GET schema STEM stem)
  set(folder "${CMAKE_CURRENT_BINARY_DIR}/generated")
  add_custom_command(
    OUTPUT "${folder}/${stem}_generated.h"
    COMMAND ${FLATC} --cpp --scoped-enums -o "${folder}" "${CMAKE_CURRENT_SOURCE_DIR}/${schema}"
    DEPENDS "${schema}")
  target_sources(${target} PRIVATE "${folder}/${stem}_generated.h")
  target_include_directories(${target} SYSTEM PRIVATE "${folder}" "${FLATBUFFERS_INCLUDE}")
endfunction()

# vexlator_library(NAME [SUBFOLDERS [EXCEPT FOLDER]] [PRECOMPILED HEADERS] [LINK ...] [PRIVATE_LINK ...])
#
# One library per folder of src/, called vexlator_<folder> ("_" for "/"), made of all .cpp files in it (with SUBFOLDERS, of
# the folders below it too, but for one that is a library of its own). A folder with headers only is an interface library. Its public include path is a folder of the
# build tree that holds nothing but links to the headers of the source folder, so that `#include "util/Text.h"` compiles
# only where vexlator_util is linked: a forbidden include fails to build.
function(vexlator_library name)
  cmake_parse_arguments(ARG "SUBFOLDERS" "EXCEPT;PRECOMPILED" "LINK;PRIVATE_LINK" ${ARGN})
  string(REPLACE "_" "/" folder "${name}")
  set(source "${PROJECT_SOURCE_DIR}/src/${folder}")
  if(ARG_SUBFOLDERS)
    set(glob GLOB_RECURSE)
  else()
    set(glob GLOB)
  endif()
  file(${glob} sources CONFIGURE_DEPENDS "${source}/*.cpp")
  file(${glob} headers CONFIGURE_DEPENDS RELATIVE "${source}" "${source}/*.h")
  if(ARG_EXCEPT)
    list(FILTER sources EXCLUDE REGEX "^${source}/${ARG_EXCEPT}/")
    list(FILTER headers EXCLUDE REGEX "^${ARG_EXCEPT}/")
  endif()
  # clang-tidy looks for a folder's own rules beside the link.
  file(GLOB rules RELATIVE "${source}" "${source}/.clang-tidy")
  set(target vexlator_${name})
  if(sources)
    add_library(${target} STATIC ${sources})
    vexlator_settings_alone(${sources})
    set(scope PUBLIC)
    vexlator_compile(${target} ${ARG_PRECOMPILED})
  else()
    add_library(${target} INTERFACE)
    set(scope INTERFACE)
  endif()
  set(include "${CMAKE_BINARY_DIR}/include/${name}")
  file(REMOVE_RECURSE "${include}")
  foreach(header ${headers} ${rules})
    cmake_path(SET link "${include}/${folder}/${header}")
    cmake_path(GET link PARENT_PATH parent)
    file(MAKE_DIRECTORY "${parent}")
    file(CREATE_LINK "${source}/${header}" "${link}" SYMBOLIC)
  endforeach()
  target_include_directories(${target} ${scope} "${include}")
  target_link_libraries(${target} ${scope} ${ARG_LINK})
  if(ARG_PRIVATE_LINK AND sources)
    target_link_libraries(${target} PRIVATE ${ARG_PRIVATE_LINK})
  endif()
  if(VEXLATOR_HEADERS)
    vexlator_headers_alone(${target} ${folder} "${headers}" ${ARG_PRIVATE_LINK})
  endif()
endfunction()

# vexlator_all(NAME): vexlator_NAME stands for all libraries of the current folder. Targets that list the conversions
# link it.
function(vexlator_all name)
  get_property(libraries DIRECTORY PROPERTY BUILDSYSTEM_TARGETS)
  list(FILTER libraries EXCLUDE REGEX "_headers$")
  add_library(vexlator_${name} INTERFACE)
  target_link_libraries(vexlator_${name} INTERFACE ${libraries})
endfunction()

# Every file that declares settings names them `keys`, so these files cannot be compiled as one (CMAKE_UNITY_BUILD).
function(vexlator_settings_alone)
  foreach(source ${ARGN})
    file(STRINGS "${source}" found REGEX "^using Keys = " LIMIT_COUNT 1)
    if(found)
      set_source_files_properties("${source}" PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    endif()
  endforeach()
endfunction()

# Compiles every header of a library in a separate file. The further arguments are the private links of the library,
# which private headers may use too.
function(vexlator_headers_alone target folder headers)
  set(sources "")
  foreach(header ${headers})
    string(REPLACE "/" "_" flat "${header}")
    set(source "${CMAKE_CURRENT_BINARY_DIR}/headers/${target}/${flat}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${folder}/${header}\"\n")
    list(APPEND sources "${source}")
  endforeach()
  if(sources)
    add_library(${target}_headers OBJECT ${sources})
    set_target_properties(${target}_headers PROPERTIES UNITY_BUILD OFF)
    target_link_libraries(${target}_headers PRIVATE ${target} ${ARGN})
    target_compile_options(${target}_headers PRIVATE ${VEXLATOR_WARNINGS})
  endif()
endfunction()

set(VEXLATOR_WARNINGS -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
                      -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 warns of overlaps and overflows inside std::string that do not exist (its bug 105651). With precompiled
  # headers it warns of more of them.
  list(APPEND VEXLATOR_WARNINGS -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  list(APPEND VEXLATOR_WARNINGS -Wreserved-identifier)
endif()
if(CMAKE_UNITY_BUILD)  # sources that are compiled as one may hide each other's names
  list(APPEND VEXLATOR_WARNINGS -Wno-shadow)
endif()
if(VEXLATOR_WERROR)
  list(APPEND VEXLATOR_WARNINGS -Werror)
endif()
if(VEXLATOR_SANITIZE)
  add_compile_options(-fsanitize=${VEXLATOR_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VEXLATOR_SANITIZE})
endif()
if(VEXLATOR_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  add_link_options(-fuse-ld=lld)
endif()

# The standard headers that most files include are compiled once for all targets; those of the tests include GoogleTest.
# This saves a third of every build. Headers are still compiled alone, without it (VEXLATOR_HEADERS).
option(VEXLATOR_PRECOMPILED "Compile the standard headers once for all files" ON)
set(VEXLATOR_STANDARD_HEADERS <algorithm> <array> <charconv> <cmath> <cstdint> <cstring> <filesystem> <functional> <limits>
                              <map> <memory> <optional> <set> <span> <stdexcept> <string> <string_view> <unordered_map>
                              <utility> <vector>)

# vexlator_precompiled(NAME HEADER...): precompiles the headers under that name.
function(vexlator_precompiled name)
  file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp" CONTENT "")
  add_library(${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
  target_compile_options(${name} PRIVATE ${VEXLATOR_WARNINGS})
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# vexlator_compile(TARGET [PRECOMPILED]): the common compile options of all our targets: the warnings, and the
# precompiled headers (with the name of the second argument, by default the standard ones).
function(vexlator_compile target)
  target_compile_options(${target} PRIVATE ${VEXLATOR_WARNINGS})
  if(VEXLATOR_PRECOMPILED)
    set(precompiled vexlator_standard_headers ${ARGN})
    list(GET precompiled -1 precompiled)
    target_precompile_headers(${target} REUSE_FROM ${precompiled})
  endif()
endfunction()

if(VEXLATOR_PRECOMPILED)
  vexlator_precompiled(vexlator_standard_headers ${VEXLATOR_STANDARD_HEADERS})
endif()

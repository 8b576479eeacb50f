# Run by the build: writes HEADER with the commit of SOURCE, if it has changed. Sources without their own repository
# have no known commit.
set(commit "unknown")
if(EXISTS "${SOURCE}/.git")
  execute_process(COMMAND git -C "${SOURCE}" describe --always --dirty --abbrev=12 --exclude=* OUTPUT_VARIABLE found
                  OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET RESULT_VARIABLE status)
  if(status EQUAL 0)
    set(commit "${found}")
  endif()
endif()
file(CONFIGURE OUTPUT "${HEADER}" CONTENT
     "#pragma once\n#include <string_view>\nnamespace vexlator { constexpr std::string_view commit = \"${commit}\"; }\n")

# Run by the build: writes HEADER, which names the commit that SOURCE was checked out from, when that has changed. Sources
# without a repository of their own are of no known commit.
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

# What zev-ask, zev-audit and zev-licenses need in addition to ICU. If any of it is missing, zev is built alone, and a message
# says which packages have it.
find_library(LIBMD_LIBRARY md)
find_path(LIBMD_INCLUDE_DIR sha2.h)
find_path(CLI11_INCLUDE_DIR CLI/CLI.hpp)
find_path(JSON_INCLUDE_DIR nlohmann/json.hpp)
find_path(EXTTEXTCAT_INCLUDE_DIR libexttextcat/fingerprint.h)

set(missing "")
foreach(need IN ITEMS LIBMD_LIBRARY=libmd-dev LIBMD_INCLUDE_DIR=libmd-dev CLI11_INCLUDE_DIR=libcli11-dev
    JSON_INCLUDE_DIR=nlohmann-json3-dev EXTTEXTCAT_INCLUDE_DIR=libexttextcat-dev)
  string(REGEX MATCH "^([^=]+)=(.*)$" need ${need})
  if(NOT ${CMAKE_MATCH_1})
    list(APPEND missing ${CMAKE_MATCH_2})
  endif()
endforeach()
list(REMOVE_DUPLICATES missing)
if(missing AND NOT ZEV_ALONE)
  list(JOIN missing " " packages)
  message(WARNING "Only zev is built, without zev-ask, zev-audit and zev-licenses. Debian's packages for these: ${packages}")
  set(ZEV_ALONE ON)
endif()

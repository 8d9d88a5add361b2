# The target zev_icu_data: an object with the part of ICU's data that zev can use, which is linked instead of all the data.
# See icu_data_kept.txt. Without the tools to cut the data, the target is empty and all the data are linked.

# The releases of ICU for which zev with the cut data was compared with zev with all the data. To add one, name it here and run
# ctest --preset release.
set(icu_releases_compared 72 76)

string(REGEX MATCH "^[0-9]+" icu_release ${ICU_VERSION})
set(whole_data)
if(NOT ICU_ICUPKG_EXECUTABLE)
  set(whole_data "there is no icupkg; Debian has it in icu-devtools")
elseif(NOT icu_release IN_LIST icu_releases_compared)
  set(whole_data "cmake/IcuData.cmake does not know ICU ${icu_release}")
endif()

add_library(zev_icu_data INTERFACE)
if(whole_data)
  # This makes the order of the libraries irrelevant.
  target_link_options(zev_icu_data INTERFACE LINKER:--undefined=icudt${icu_release}_dat)
  message(WARNING "All of ICU's data are linked, some 23 MB more than zev needs: ${whole_data}.")
  return()
endif()

set(directory ${PROJECT_BINARY_DIR}/icu_data)
set(script ${CMAKE_CURRENT_LIST_DIR}/CutIcuData.cmake)
set(kept ${CMAKE_CURRENT_LIST_DIR}/icu_data_kept.txt)
add_custom_command(OUTPUT ${directory}/icu_data.o
  COMMAND ${CMAKE_COMMAND} -D LIBRARY=${ICU_DATA_LIBRARY} -D KEPT=${kept} -D OUTPUT=${directory}/icu_data.o
    -D AR=${CMAKE_AR} -D OBJCOPY=${CMAKE_OBJCOPY} -D ICUPKG=${ICU_ICUPKG_EXECUTABLE} -P ${script}
  DEPENDS ${script} ${kept} ${ICU_DATA_LIBRARY}
  COMMENT "Cutting ICU's data"
  VERBATIM)
add_custom_target(zev_icu_data_object DEPENDS ${directory}/icu_data.o)
target_link_libraries(zev_icu_data INTERFACE ${directory}/icu_data.o)
add_dependencies(zev_icu_data zev_icu_data_object)

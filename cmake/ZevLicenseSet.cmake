# zev_add_license_set(NAME SOURCES dir|file [STAND_IN code|LANG code] [LANGSET set] [OUTPUT dir] [STRICT]
#                     [ACCEPT kind[:file]...])
#
# Adds the target NAME, part of ALL: makes a licence directory for zev of the texts in SOURCES, at build time and whenever a
# text has changed or a file of the set is gone. SOURCES is a directory, or one text in the language LANG for all
# languages. Errors in the texts fail the build; with STRICT warnings do too, except those that ACCEPT names. The directory
# is OUTPUT, or NAME in the current binary directory if that is not given; it is the target's property
# ZEV_LICENSE_DIRECTORY.
#
# Runs this build's zev-licenses or, if it has none, the installed one. When cross-compiling without an emulator, it runs one for
# the machine that builds, found on the PATH or named by ZEV_LICENSES_PROGRAM.
function(zev_add_license_set name)
  cmake_parse_arguments(PARSE_ARGV 1 arg STRICT "SOURCES;STAND_IN;LANG;LANGSET;OUTPUT" ACCEPT)
  if(NOT arg_SOURCES OR arg_UNPARSED_ARGUMENTS)
    message(FATAL_ERROR "zev_add_license_set: SOURCES is missing, or this is unknown: ${arg_UNPARSED_ARGUMENTS}")
  endif()
  cmake_path(ABSOLUTE_PATH arg_SOURCES BASE_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR} NORMALIZE)
  if(NOT arg_OUTPUT)
    set(arg_OUTPUT ${name})
  endif()
  cmake_path(ABSOLUTE_PATH arg_OUTPUT BASE_DIRECTORY ${CMAKE_CURRENT_BINARY_DIR} NORMALIZE)

  set(runs_here TRUE)
  if(CMAKE_CROSSCOMPILING AND NOT CMAKE_CROSSCOMPILING_EMULATOR)
    set(runs_here FALSE)
  endif()
  if(runs_here AND TARGET zev-licenses)
    set(tool zev-licenses)
  elseif(runs_here AND TARGET zev::licenses)
    set(tool zev::licenses)
  else()
    find_program(ZEV_LICENSES_PROGRAM zev-licenses REQUIRED NO_CMAKE_FIND_ROOT_PATH)
    set(tool ${ZEV_LICENSES_PROGRAM})
  endif()

  set(options "")
  foreach(option IN ITEMS STAND_IN LANG LANGSET)
    if(arg_${option})
      string(TOLOWER ${option} name_of_option)
      string(REPLACE _ - name_of_option ${name_of_option})
      list(APPEND options --${name_of_option} ${arg_${option}})
    endif()
  endforeach()
  if(arg_STRICT)
    list(APPEND options --strict)
  endif()
  foreach(accepted IN LISTS arg_ACCEPT)
    list(APPEND options --accept ${accepted})
  endforeach()

  set(texts ${arg_SOURCES})
  if(IS_DIRECTORY ${arg_SOURCES})
    string(REGEX REPLACE "[[*?]" "[\\0]" pattern ${arg_SOURCES})  # a path, whatever signs are in it
    file(GLOB in_directory CONFIGURE_DEPENDS ${pattern}/*)
    list(APPEND texts ${in_directory})
  endif()
  set(languages cs de en es fr it ja ko pl pt tr zh zh_TW)
  if(NOT arg_LANGSET EQUAL 3)
    list(APPEND languages el lt ru sl)
  endif()
  set(files "")
  foreach(code IN LISTS languages)
    list(APPEND files ${arg_OUTPUT}/LA_${code} ${arg_OUTPUT}/LI_${code})
  endforeach()
  foreach(name_of_text IN ITEMS non_vur_license notices)
    if(${arg_SOURCES}/${name_of_text}.txt IN_LIST texts)
      list(APPEND files ${arg_OUTPUT}/${name_of_text})
    endif()
  endforeach()
  add_custom_command(OUTPUT ${files}
    COMMAND ${tool} build ${options} ${arg_SOURCES} ${arg_OUTPUT}
    DEPENDS ${texts} ${tool} COMMENT "Making the licence directory ${name}" VERBATIM)
  add_custom_target(${name} ALL DEPENDS ${files})
  set_target_properties(${name} PROPERTIES ZEV_LICENSE_DIRECTORY ${arg_OUTPUT})
endfunction()

# zev_add_license_set(NAME SOURCES dir [STAND_IN code] [LANGSET set] [OUTPUT dir] [STRICT])
#
# Adds the target NAME, part of ALL: makes a licence directory for zev of the texts in SOURCES and checks it, at build time
# and whenever a text has changed. Errors fail the build, with STRICT warnings too. The directory is OUTPUT, otherwise NAME
# in the current binary directory; it is the target's property ZEV_LICENSE_DIRECTORY.
#
# Runs this build's zev-licenses, else the installed one. When cross-compiling without an emulator it is one of the machine
# that builds, found on the PATH or named by ZEV_LICENSES_PROGRAM.
function(zev_add_license_set name)
  cmake_parse_arguments(PARSE_ARGV 1 arg STRICT "SOURCES;STAND_IN;LANGSET;OUTPUT" "")
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
  if(arg_STAND_IN)
    list(APPEND options --stand-in ${arg_STAND_IN})
  endif()
  if(arg_LANGSET)
    list(APPEND options --langset ${arg_LANGSET})
  endif()
  set(strict "")
  if(arg_STRICT)
    set(strict --strict)
  endif()
  file(GLOB texts CONFIGURE_DEPENDS ${arg_SOURCES}/*)
  set(checked ${CMAKE_CURRENT_BINARY_DIR}/${name}.checked)
  add_custom_command(OUTPUT ${checked} ${arg_OUTPUT}/LA_en
    COMMAND ${tool} build ${options} ${arg_SOURCES} ${arg_OUTPUT}
    COMMAND ${tool} check ${options} ${strict} ${arg_OUTPUT}
    COMMAND ${CMAKE_COMMAND} -E touch ${checked}
    DEPENDS ${texts} ${arg_SOURCES} ${tool} COMMENT "Making and checking the licence directory ${name}" VERBATIM)
  add_custom_target(${name} ALL DEPENDS ${checked} ${arg_OUTPUT}/LA_en)
  set_target_properties(${name} PROPERTIES ZEV_LICENSE_DIRECTORY ${arg_OUTPUT})
endfunction()

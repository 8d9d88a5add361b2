# The build runs this: it cuts ICU's static data library down to what a list keeps.
#
#   cmake -D LIBRARY=libicudata.a -D KEPT=list -D OUTPUT=object -D AR=... -D OBJCOPY=... -D ICUPKG=... -P CutIcuData.cmake
#
# The object has the name and the symbol of the whole data, so that the linker takes it instead. The script works in the
# directory of OUTPUT, which it empties first. AR and OBJCOPY are those of the target; icupkg knows both byte orders.
cmake_minimum_required(VERSION 3.25)

get_filename_component(directory ${OUTPUT} DIRECTORY)
file(REMOVE_RECURSE ${directory})
file(MAKE_DIRECTORY ${directory}/whole)

function(call)
  execute_process(COMMAND ${ARGN} WORKING_DIRECTORY ${directory} RESULT_VARIABLE result OUTPUT_VARIABLE output
    ERROR_VARIABLE errors)
  if(NOT result EQUAL 0)
    list(JOIN ARGN " " command)
    message(FATAL_ERROR "ICU's data cannot be cut: `${command}` failed with ${result}: ${errors}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

# list_items(package variable): the names in a package.
function(list_items package variable)
  call(${ICUPKG} --ignore-deps -l ${package})
  string(STRIP "${output}" output)
  string(REPLACE "\n" ";" output "${output}")
  set(${variable} ${output} PARENT_SCOPE)
endfunction()

call(${AR} t ${LIBRARY})
string(STRIP "${output}" member)
if(NOT member MATCHES "^(icudt[0-9]+[lb])_dat\\.a?o$")
  message(FATAL_ERROR "ICU's data cannot be cut: ${LIBRARY} should hold one object with data and holds `${member}`.")
endif()
# icupkg takes the name of a package from the name of its file.
set(whole whole/${CMAKE_MATCH_1}.dat)
set(small ${CMAKE_MATCH_1}.dat)

call(${AR} x ${LIBRARY})
call(${OBJCOPY} -O binary -j .rodata ${member} ${whole})
list_items(${whole} rest)

file(STRINGS ${KEPT} lines REGEX "^[^#]")
set(kept)
foreach(line IN LISTS lines)
  string(REGEX MATCH "^[^ ]+" pattern "${line}")
  string(REPLACE "." "\\." expression "${pattern}")
  string(REPLACE "*" ".*" expression "${expression}")
  set(matching ${rest})
  list(FILTER matching INCLUDE REGEX "^${expression}$")
  if(NOT matching)
    message(FATAL_ERROR "ICU's data cannot be cut: nothing in ${LIBRARY} is called ${pattern}, which ${KEPT} keeps.")
  endif()
  list(REMOVE_ITEM rest ${matching})
  list(APPEND kept ${matching})
endforeach()

list(JOIN rest "\n" removed)
file(WRITE ${directory}/removed.txt "${removed}\n")
call(${ICUPKG} --ignore-deps -r removed.txt ${whole} ${small})

# icupkg succeeds for names that it does not know.
list_items(${small} left)
list(SORT kept COMPARE STRING)
list(SORT left COMPARE STRING)
if(NOT "${left}" STREQUAL "${kept}")
  message(FATAL_ERROR "ICU's data cannot be cut: icupkg left other items than those that ${KEPT} keeps.")
endif()

call(${OBJCOPY} --update-section .rodata=${small} ${member} ${OUTPUT})
file(REMOVE_RECURSE ${directory}/${member} ${directory}/whole)

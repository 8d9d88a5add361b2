# zev_ship(<target>): makes an executable fit to be shipped. With ZEV_STATIC it is one file that needs nothing of the system:
# position-independent, hardened, without symbols, and without the parts of ICU that zev never calls. Include this file before
# the first target, because it also sets the options with which everything in such an executable is compiled.

if(ZEV_STATIC)
  include(CheckCXXCompilerFlag)
  include(CheckCXXSourceCompiles)
  include(${CMAKE_CURRENT_LIST_DIR}/IcuData.cmake)

  add_compile_options(-fPIE -ffunction-sections -fdata-sections
    -ffile-prefix-map=${PROJECT_SOURCE_DIR}=. -ffile-prefix-map=${PROJECT_BINARY_DIR}=.)
  add_compile_options(-fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3)
  if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    add_compile_options(-Wno-restrict)  # at -O3 it sees overlaps inside of std::string that are not there
  endif()
  # Not every processor or compiler has these options; some ignore them with a warning.
  set(CMAKE_REQUIRED_FLAGS -Werror)
  foreach(flag IN ITEMS -fstack-clash-protection -fcf-protection=full -mbranch-protection=standard)
    string(MAKE_C_IDENTIFIER "ZEV_HAS${flag}" has_flag)
    check_cxx_compiler_flag(${flag} ${has_flag})
    add_compile_options($<$<BOOL:${${has_flag}}>:${flag}>)
  endforeach()
  # Some linkers accept the option and pack nothing.
  set(CMAKE_REQUIRED_LINK_OPTIONS LINKER:-z,pack-relative-relocs)
  check_cxx_source_compiles("int main() {}" ZEV_HAS_packed_relocations FAIL_REGEX ignored)
  unset(CMAKE_REQUIRED_LINK_OPTIONS)
  unset(CMAKE_REQUIRED_FLAGS)

  add_library(zev_shipped INTERFACE)
  target_link_libraries(zev_shipped INTERFACE zev_icu_data)
  target_link_options(zev_shipped INTERFACE
    -static-pie -s LINKER:--gc-sections LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack LINKER:--wrap=dlopen
    $<$<BOOL:${ZEV_HAS_packed_relocations}>:LINKER:-z,pack-relative-relocs>)
endif()

function(zev_ship target)
  # Linked in every build, so that the tests show it if ICU begins to call what is left out.
  target_link_libraries(${target} PRIVATE zev_icu_left_out)
  if(ZEV_STATIC)
    target_link_libraries(${target} PRIVATE zev_no_plugins zev_shipped)
    set_property(GLOBAL APPEND PROPERTY ZEV_SHIPPED ${target})  # for tests/release
  endif()
endfunction()

# What `cpack` makes of the installed tree: a .deb and a .rpm, with the same bytes for the same SOURCE_DATE_EPOCH and umask.
# From a build with ZEV_STATIC they depend on no other package.
set(ZEV_PACKAGE_CONTACT "zev maintainers <maintainers@zev.invalid>" CACHE STRING
  "Name and address of who answers for the packages")

set(CPACK_GENERATOR DEB RPM)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/packages)
set(CPACK_PACKAGE_CONTACT "${ZEV_PACKAGE_CONTACT}")
set(CPACK_PACKAGE_VENDOR zev)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Licence agreements in a text terminal, for installers")
set(CPACK_PACKAGE_DESCRIPTION
"zev is run by the installer of a product. It shows a licence agreement in
the language of the user, lays it out for the terminal by the line-breaking
rules of the script, takes the answer, records an acceptance and answers by
its exit status. It needs no library and no locale on the system.")
set(CPACK_PACKAGE_RELOCATABLE OFF)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/packages/Finish.cmake)

if(ZEV_STATIC)
  set(shared OFF)
else()
  set(shared ON)  # what the executable needs is looked up and named
endif()

# zev's own licence, and then every other one once.
set(licences Apache-2.0)
file(STRINGS ${CMAKE_CURRENT_LIST_DIR}/packages/licences lines REGEX "^[^#]")
foreach(line IN LISTS lines)
  string(REGEX MATCH "^[^ ]+ +(.+)$" expression "${line}")
  string(REPLACE " AND " ";" expression "${CMAKE_MATCH_1}")
  list(APPEND licences ${expression})
endforeach()
list(REMOVE_DUPLICATES licences)

if(CMAKE_CROSSCOMPILING)  # else dpkg is asked
  set(CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${CMAKE_SYSTEM_PROCESSOR})
  string(REPLACE x86_64 amd64 CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${CPACK_DEBIAN_PACKAGE_ARCHITECTURE})
  string(REPLACE aarch64 arm64 CPACK_DEBIAN_PACKAGE_ARCHITECTURE ${CPACK_DEBIAN_PACKAGE_ARCHITECTURE})
endif()
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ${shared})

set(CPACK_RPM_PACKAGE_ARCHITECTURE ${CMAKE_SYSTEM_PROCESSOR})
set(CPACK_RPM_PACKAGE_RELEASE 1)
set(CPACK_RPM_FILE_NAME RPM-DEFAULT)
set(CPACK_RPM_COMPRESSION_TYPE xz)
set(CPACK_RPM_PACKAGE_AUTOREQ ${shared})
set(CPACK_RPM_PACKAGE_DESCRIPTION "${CPACK_PACKAGE_DESCRIPTION}")
list(JOIN licences " AND " CPACK_RPM_PACKAGE_LICENSE)
set(CPACK_RPM_EXCLUDE_FROM_AUTO_FILELIST_ADDITION
  /usr/lib/cmake /usr/share/man /usr/share/man/man1 /usr/share/man/man5
  /usr/share/bash-completion /usr/share/bash-completion/completions
  /usr/share/fish /usr/share/fish/vendor_completions.d /usr/share/zsh /usr/share/zsh/site-functions)
# Otherwise rpm would strip again, link build ids, and record the time, the machine and each file's own date.
set(CPACK_RPM_SPEC_MORE_DEFINE
"%define __os_install_post %{nil}
%define _build_id_links none
%define _buildhost reproducible
%define packager ${CPACK_PACKAGE_CONTACT}
%define use_source_date_epoch_as_buildtime 1
%define clamp_mtime_to_source_date_epoch 1")
include(CPack)

# What `cmake --install` installs. A build without zev-ask, zev-audit and zev-licenses installs their manuals all the same.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(package_dir lib/cmake/zev)  # executables serve every architecture that a project builds for
set(sample_dir ${CMAKE_INSTALL_DATADIR}/zev/samples)

install(TARGETS zev EXPORT zevTargets)
if(TARGET zev-licenses)
  set_target_properties(zev-licenses PROPERTIES EXPORT_NAME licenses)
  install(TARGETS zev-licenses EXPORT zevTargets)
endif()

if(NOT ZEV_ALONE)
  # The same file under other names.
  install(FILES ${PROJECT_BINARY_DIR}/zev-ask ${PROJECT_BINARY_DIR}/zev-audit DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

foreach(section IN ITEMS 1 5)
  file(GLOB pages CONFIGURE_DEPENDS man/*.${section})
  install(FILES ${pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man${section})
endforeach()

# README and every file that it links to. Brackets are replaced first, because CMake does not split a list inside them.
file(READ README.md text)
string(REPLACE "](" "src=\"" text "${text}")
string(REGEX MATCHALL "src=\"[^:#)\"]+" links "${text}")
list(TRANSFORM links REPLACE "src=\"" "")
list(APPEND links README.md CHANGELOG.md SECURITY.md LICENSE THIRD-PARTY)
list(REMOVE_DUPLICATES links)
foreach(file IN LISTS links)
  cmake_path(GET file PARENT_PATH folder)
  install(FILES ${file} DESTINATION ${CMAKE_INSTALL_DOCDIR}/${folder})
endforeach()
install(DIRECTORY examples DESTINATION ${CMAKE_INSTALL_DOCDIR} USE_SOURCE_PERMISSIONS)

install(DIRECTORY ${PROJECT_BINARY_DIR}/sample-licenses/ DESTINATION ${sample_dir}/licenses)
install(DIRECTORY samples/licenses/ DESTINATION ${sample_dir}/texts FILES_MATCHING PATTERN *.txt)

install(DIRECTORY completions/bash/ DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions)
install(DIRECTORY completions/zsh/ DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
install(DIRECTORY completions/fish/ DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d)

write_basic_package_version_file(${PROJECT_BINARY_DIR}/zevConfigVersion.cmake
  COMPATIBILITY SameMajorVersion ARCH_INDEPENDENT)
install(EXPORT zevTargets NAMESPACE zev:: DESTINATION ${package_dir})
install(FILES cmake/zevConfig.cmake ${PROJECT_BINARY_DIR}/zevConfigVersion.cmake DESTINATION ${package_dir})
install(FILES cmake/ZevLicenseSet.cmake DESTINATION ${package_dir})

# Run by cpack between installing a package's files and packing them: what only packages have.
set(usr ${CPACK_TEMPORARY_DIRECTORY}/usr)
set(doc ${usr}/share/doc/zev)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

file(GLOB pages ${usr}/share/man/man?/*)
run(gzip -9n ${pages})

if(CPACK_GENERATOR STREQUAL DEB)
  file(COPY ${CMAKE_CURRENT_LIST_DIR}/copyright DESTINATION ${doc})
  file(REMOVE ${doc}/LICENSE)

  # The time of SOURCE_DATE_EPOCH, where that is set.
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  file(WRITE ${doc}/changelog.Debian
"zev (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) stable; urgency=medium

  * Release ${CPACK_PACKAGE_VERSION}; changelog.gz says what changed.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
  file(RENAME ${doc}/CHANGELOG.md ${doc}/changelog)
  run(gzip -9n ${doc}/changelog.Debian ${doc}/changelog)

  configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${usr}/share/lintian/overrides/zev COPYONLY)
  file(RENAME ${usr}/share/zsh/site-functions ${usr}/share/zsh/vendor-completions)
endif()

run(chmod -R u=rwX,go=rX ${usr})  # whatever the umask

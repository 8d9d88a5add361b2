# cpack runs this after it has installed a package's files and before it packs them. It adds what only packages have.
set(usr ${CPACK_TEMPORARY_DIRECTORY}/usr)
set(doc ${usr}/share/doc/zev)

function(run)
  execute_process(COMMAND ${ARGN} COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# Writes the licences in the tag of the .rpm in Debian's machine-readable form.
function(write_copyright)
  set(text_of_Apache-2.0 /usr/share/common-licenses/Apache-2.0)
  set(text_of_GPL-3.0-or-later /usr/share/common-licenses/GPL-3)
  set(text_of_LGPL-2.1-or-later /usr/share/common-licenses/LGPL-2.1)
  string(REPLACE " AND " ";" names "${CPACK_RPM_PACKAGE_LICENSE}")
  list(TRANSFORM names REPLACE " WITH (.+)" " with \\1 exception")
  list(JOIN names " and " license)
  set(paragraphs "")
  foreach(name IN LISTS names)
    string(REGEX MATCH "^[^ ]+" id "${name}")
    if(NOT text_of_${id})
      set(text_of_${id} THIRD-PARTY)
    endif()
    string(APPEND paragraphs "\nLicense: ${name}\n The text is in ${text_of_${id}}.\n")
  endforeach()
  string(STRIP "${paragraphs}" paragraphs)
  string(PREPEND paragraphs "\n")
  configure_file(${CMAKE_CURRENT_LIST_DIR}/copyright.in ${doc}/copyright @ONLY)
endfunction()

file(GLOB pages ${usr}/share/man/man?/*)
run(gzip -9n ${pages})

if(CPACK_GENERATOR STREQUAL DEB)
  write_copyright()

  # The time is that of SOURCE_DATE_EPOCH, if it is set.
  string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
  file(WRITE ${doc}/changelog.Debian
"zev (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) stable; urgency=medium

  * Release ${CPACK_PACKAGE_VERSION}; changelog.gz says what changed.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")
  file(COPY_FILE ${doc}/CHANGELOG.md ${doc}/changelog)
  run(gzip -9n ${doc}/changelog.Debian ${doc}/changelog)

  configure_file(${CMAKE_CURRENT_LIST_DIR}/lintian-overrides ${usr}/share/lintian/overrides/zev COPYONLY)
  file(RENAME ${usr}/share/zsh/site-functions ${usr}/share/zsh/vendor-completions)
endif()

run(chmod -R u=rwX,go=rX ${usr})  # whatever the umask

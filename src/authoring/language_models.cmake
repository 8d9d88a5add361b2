# The language guesser of zev-licenses: libexttextcat's code, and its models of the languages in Latin script, linked in.
find_library(TEXTCAT_LIBRARY exttextcat-2.0 REQUIRED)
find_path(TEXTCAT_MODELS en.lm PATHS /usr/share/libexttextcat REQUIRED NO_CMAKE_FIND_ROOT_PATH)
mark_as_advanced(TEXTCAT_LIBRARY TEXTCAT_MODELS)

set(profiles ${CMAKE_CURRENT_LIST_DIR}/language_profile.cpp)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${profiles})
file(READ ${profiles} text)
string(REGEX MATCHALL "{\"[a-z]+\", latin," rows "${text}")

set(models "")
foreach(row IN LISTS rows)
  string(REGEX MATCH "[a-z]+" code ${row})
  file(READ ${TEXTCAT_MODELS}/${code}.lm model)
  string(APPEND models "        {\"${code}\", R\"(${model})\"},\n")
endforeach()
configure_file(${CMAKE_CURRENT_LIST_DIR}/language_models.cpp.in language_models.cpp @ONLY)

target_sources(zev_authoring PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/language_models.cpp)
target_link_libraries(zev_authoring PRIVATE ${TEXTCAT_LIBRARY})

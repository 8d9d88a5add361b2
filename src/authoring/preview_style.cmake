# The style sheet of the preview page, linked into zev-licenses.
set(sheet ${CMAKE_CURRENT_LIST_DIR}/preview.css)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sheet})
file(READ ${sheet} style)
file(CONFIGURE OUTPUT preview_style.cpp @ONLY CONTENT [[
#include "authoring/html.h"

namespace zev {

const char* previewStyle() {
    return R"css(
@style@)css";
}

}  // namespace zev
]])
target_sources(zev_authoring PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/preview_style.cpp)

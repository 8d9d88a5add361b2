# Read by find_package(zev): the executables zev::zev and, where it was installed, zev::licenses.
include("${CMAKE_CURRENT_LIST_DIR}/zevTargets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/ZevLicenseSet.cmake" OPTIONAL)

# find_package(zev) reads this: the executables zev::zev and, if it was installed, zev::licenses.
include("${CMAKE_CURRENT_LIST_DIR}/zevTargets.cmake")
include("${CMAKE_CURRENT_LIST_DIR}/ZevLicenseSet.cmake")

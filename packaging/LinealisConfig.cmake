# CMake package Linealis. Defines the target Linealis::linealis.

include(CMakeFindDependencyMacro)
find_dependency(ZLIB)
include("${CMAKE_CURRENT_LIST_DIR}/LinealisTargets.cmake")

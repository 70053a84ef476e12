# CMake package Linealis. Defines the target Linealis::linealis, the shared library, and, as the component "static",
# Linealis::linealis_static.

include(CMakeFindDependencyMacro)
include("${CMAKE_CURRENT_LIST_DIR}/LinealisTargets.cmake")
if("static" IN_LIST Linealis_FIND_COMPONENTS)
    find_dependency(ZLIB)
    find_dependency(pugixml)
    find_dependency(PkgConfig)
    pkg_check_modules(PICTURES REQUIRED QUIET IMPORTED_TARGET freetype2 fontconfig libpng)
    include("${CMAKE_CURRENT_LIST_DIR}/LinealisStaticTargets.cmake")
endif()

# The libraries of the core for browsers, as targets with the names that find_package would give them. zlib and pugixml are
# compiled from their sources (scripts/web-sources); nlohmann-json has headers only.

foreach(source IN ITEMS "${LINEALIS_ZLIB_SOURCE}/zlib.h" "${LINEALIS_PUGIXML_SOURCE}/src/pugixml.cpp")
    if(NOT EXISTS "${source}")
        message(FATAL_ERROR "${source} does not exist. Run scripts/web-sources, or set LINEALIS_ZLIB_SOURCE and "
                            "LINEALIS_PUGIXML_SOURCE.")
    endif()
endforeach()

enable_language(C)
set(zlib_files adler32 compress crc32 deflate inffast inflate inftrees trees uncompr zutil)
list(TRANSFORM zlib_files PREPEND "${LINEALIS_ZLIB_SOURCE}/")
list(TRANSFORM zlib_files APPEND .c)
add_library(zlib_from_source STATIC ${zlib_files})
set_target_properties(zlib_from_source PROPERTIES UNITY_BUILD OFF)
target_include_directories(zlib_from_source SYSTEM PUBLIC "${LINEALIS_ZLIB_SOURCE}")
add_library(ZLIB::ZLIB ALIAS zlib_from_source)

add_library(pugixml_from_source STATIC "${LINEALIS_PUGIXML_SOURCE}/src/pugixml.cpp")
target_include_directories(pugixml_from_source SYSTEM PUBLIC "${LINEALIS_PUGIXML_SOURCE}/src")
target_compile_definitions(pugixml_from_source PUBLIC PUGIXML_NO_XPATH)
add_library(pugixml::pugixml ALIAS pugixml_from_source)

# A copy, because its folder has the headers of the system's C library too.
find_path(json_headers nlohmann/json.hpp PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
file(COPY "${json_headers}/nlohmann" DESTINATION "${CMAKE_BINARY_DIR}/headers")
add_library(json_headers INTERFACE)
target_include_directories(json_headers SYSTEM INTERFACE "${CMAKE_BINARY_DIR}/headers")
add_library(nlohmann_json::nlohmann_json ALIAS json_headers)

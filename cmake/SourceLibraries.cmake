# Libraries that are compiled with the program, from their sources in LINEALIS_SOURCES (scripts/library-sources), as targets with the
# names that find_package would give them. nlohmann-json and CLI11 have headers only.

function(require_source file)
    if(NOT EXISTS "${LINEALIS_SOURCES}/${file}")
        message(FATAL_ERROR "${LINEALIS_SOURCES}/${file} does not exist. Run scripts/library-sources, or set LINEALIS_SOURCES.")
    endif()
endfunction()

enable_language(C)

# Adds a library made from sources in `folder`.
function(add_source_library name folder)
    require_source(${folder})
    list(TRANSFORM ARGN PREPEND "${LINEALIS_SOURCES}/${folder}/" OUTPUT_VARIABLE files)
    add_library(${name} STATIC ${files})
    set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
    target_include_directories(${name} SYSTEM PUBLIC "${LINEALIS_SOURCES}/${folder}")
endfunction()

add_source_library(zlib_from_source zlib
    adler32.c compress.c crc32.c deflate.c inffast.c inflate.c inftrees.c trees.c uncompr.c zutil.c)
add_library(ZLIB::ZLIB ALIAS zlib_from_source)

add_source_library(pugixml_from_source pugixml/src pugixml.cpp)
target_compile_definitions(pugixml_from_source PUBLIC PUGIXML_NO_XPATH)
add_library(pugixml::pugixml ALIAS pugixml_from_source)

# Adds a target with a copy of the headers that are found by one of them. The system's own folder has the headers of its C library
# too.
function(add_headers target header folder)
    find_path(${folder}_headers ${header} PATHS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
    file(COPY "${${folder}_headers}/${folder}" DESTINATION "${CMAKE_BINARY_DIR}/headers/${folder}")
    string(REPLACE "::" "_" name ${target})
    add_library(${name} INTERFACE)
    target_include_directories(${name} SYSTEM INTERFACE "${CMAKE_BINARY_DIR}/headers/${folder}")
    add_library(${target} ALIAS ${name})
endfunction()

add_headers(nlohmann_json::nlohmann_json nlohmann/json.hpp nlohmann)

# The page for browsers has no command line and paints pictures itself.
if(EMSCRIPTEN)
    return()
endif()

add_headers(CLI11::CLI11 CLI/CLI.hpp CLI)

set(png_sources png pngerror pngget pngmem pngpread pngread pngrio pngrtran pngrutil pngset pngtrans pngwio pngwrite pngwtran
    pngwutil)
list(TRANSFORM png_sources APPEND .c)
add_source_library(png_from_source libpng1.6 ${png_sources})
configure_file("${LINEALIS_SOURCES}/libpng1.6/scripts/pnglibconf.h.prebuilt" "${CMAKE_BINARY_DIR}/headers/png/pnglibconf.h" COPYONLY)
target_include_directories(png_from_source SYSTEM PUBLIC "${CMAKE_BINARY_DIR}/headers/png")
target_link_libraries(png_from_source PUBLIC ZLIB::ZLIB)

require_source(freetype/CMakeLists.txt)
foreach(part IN ITEMS ZLIB BZIP2 PNG HARFBUZZ BROTLI)
    set(FT_DISABLE_${part} ON)
endforeach()
set(CMAKE_POLICY_DEFAULT_CMP0077 NEW)
add_subdirectory("${LINEALIS_SOURCES}/freetype" freetype EXCLUDE_FROM_ALL)
set_target_properties(freetype PROPERTIES UNITY_BUILD OFF)
target_compile_options(freetype PRIVATE -w)
target_compile_definitions(freetype PRIVATE FT_CONFIG_OPTION_SYSTEM_ZLIB)
target_include_directories(freetype PRIVATE "${LINEALIS_SOURCES}/zlib")

add_library(pictures INTERFACE)
target_link_libraries(pictures INTERFACE freetype png_from_source)
add_library(PkgConfig::PICTURES ALIAS pictures)
set(PICTURES_INCLUDE_DIRS "${LINEALIS_SOURCES}/freetype/include" "${LINEALIS_SOURCES}/libpng1.6" "${CMAKE_BINARY_DIR}/headers/png")

# CPack reads this file once per kind of package. The RPM packages hold the programs: the folders and scripts of the library's
# packages are those of Debian.

if(CPACK_GENERATOR STREQUAL "RPM")
    list(REMOVE_ITEM CPACK_COMPONENTS_ALL library development python)
endif()

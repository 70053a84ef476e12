# CPack runs this script on the staged files of each package. It removes what only Debian reads from other packages, compresses
# manual pages and changelogs, and sets the time of all files to SOURCE_DATE_EPOCH, so that two builds make the same package.

set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}")
if(NOT CPACK_GENERATOR STREQUAL "DEB")
    file(GLOB_RECURSE ofDebian LIST_DIRECTORIES true "${root}/*")
    list(FILTER ofDebian INCLUDE REGEX "/(lintian|doc-base|changelog[.]Debian)$")
    if(ofDebian)
        file(REMOVE_RECURSE ${ofDebian})
    endif()
endif()
file(GLOB_RECURSE texts "${root}/*")
list(FILTER texts INCLUDE REGEX "/man/man./[^/]*$|/changelog[^/]*$")
list(FILTER texts EXCLUDE REGEX "[.]gz$")
if(texts)
    execute_process(COMMAND gzip -9n ${texts} COMMAND_ERROR_IS_FATAL ANY)
endif()
file(GLOB_RECURSE files LIST_DIRECTORIES true "${root}/*")
execute_process(COMMAND touch --no-dereference --date=@$ENV{SOURCE_DATE_EPOCH} ${files} COMMAND_ERROR_IS_FATAL ANY)

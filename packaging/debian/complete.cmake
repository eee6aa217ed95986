# Run by cpack between installing and packing: adds what Debian wants to find in a package and no one else does.
set(usr "${CPACK_TEMPORARY_INSTALL_DIRECTORY}${CPACK_PACKAGING_INSTALL_PREFIX}")
if(NOT EXISTS "${usr}/bin")
  message(FATAL_ERROR "There is nothing installed in ${usr}")
endif()
set(doc "${usr}/share/doc/${CPACK_PACKAGE_NAME}")

file(READ "${CPACK_VIRELLE_SOURCE}/LICENSE" license)
string(REGEX REPLACE "^MIT License\n+Copyright \\(c\\) ([^\n]*)\n+" "" license "${license}")
set(copyright "${CMAKE_MATCH_1}")
if(NOT copyright)
  message(FATAL_ERROR "LICENSE does not begin with its name and a line of copyright")
endif()
string(REGEX REPLACE "\n$" "" license "${license}")
string(REPLACE "\n\n" "\n.\n" license "${license}")
string(REPLACE "\n" "\n " license "${license}")
file(WRITE "${doc}/copyright"
"Format: https://www.debian.org/doc/packaging-manuals/copyright-format/1.0/
Upstream-Name: Virelle

Files: *
Copyright: ${copyright}
License: Expat
 ${license}
")
file(COPY_FILE "${CPACK_VIRELLE_SOURCE}/CHANGELOG.md" "${doc}/changelog")
string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC) # heeds SOURCE_DATE_EPOCH
file(WRITE "${doc}/changelog.Debian"
"${CPACK_PACKAGE_NAME} (${CPACK_PACKAGE_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}) unstable; urgency=medium

  * Package of version ${CPACK_PACKAGE_VERSION}; the changelog beside this one tells what is in it.

 -- ${CPACK_PACKAGE_CONTACT}  ${date}
")

# Debian wants pages and changelogs compressed, without the time in them.
file(GLOB pages "${usr}/share/man/man1/*.1")
execute_process(COMMAND gzip --best --no-name --force "${doc}/changelog" "${doc}/changelog.Debian" ${pages}
  COMMAND_ERROR_IS_FATAL ANY)
file(CHMOD_RECURSE "${usr}/share/doc" FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
  DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

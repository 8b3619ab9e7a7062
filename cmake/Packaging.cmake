# The installed layout and the Debian package (cpack -G DEB after the build).
#
# The module finds its files beside itself and ardo-cad finds the module beside its own
# executable (symbolic links resolved), so program, module and read-only files share
# /usr/lib/ardo/program and /usr/bin/ardo-cad is a link to it. Users' settings go to their
# homes: the packaged Ardo_Sys.cfg names the user root ~/.config/ardo.
include(GNUInstallDirs)

# Installing and packaging take the build as it is: cpack after the build (and the package
# test after the CI build) must not start a second build of every target.
set(CMAKE_SKIP_INSTALL_ALL_DEPENDENCY ON)

# Not the multiarch library folder: the link in bin/ names lib/ardo. A folder below it: the
# module is no library of the system, and CPack adds ldconfig calls to the maintainer
# scripts for a shared object in /usr/lib or one folder below it.
set(ARDO_PROGRAM_DIR lib/ardo/program)
set(ARDO_DOC_DIR ${CMAKE_INSTALL_DATADIR}/doc/ardo)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

install(TARGETS ardo-cad RUNTIME DESTINATION ${ARDO_PROGRAM_DIR})
install(TARGETS ardo.arx LIBRARY DESTINATION ${ARDO_PROGRAM_DIR} PERMISSIONS
        OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/install/ DESTINATION ${ARDO_PROGRAM_DIR}
        FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ
        PATTERN "Benutzer" EXCLUDE
        PATTERN "Ardo_Sys.cfg" EXCLUDE)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/Ardo_Sys.cfg DESTINATION ${ARDO_PROGRAM_DIR})
install(FILES ${CMAKE_BINARY_DIR}/ardo/help/ArdoArx.chm ${CMAKE_BINARY_DIR}/ardo/help/ArdoArx.top
        DESTINATION ${ARDO_PROGRAM_DIR}/help PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(MAKE_DIRECTORY ${CMAKE_BINARY_DIR}/packaging)
file(CREATE_LINK ../${ARDO_PROGRAM_DIR}/ardo-cad ${CMAKE_BINARY_DIR}/packaging/ardo-cad SYMBOLIC)
install(FILES ${CMAKE_BINARY_DIR}/packaging/ardo-cad DESTINATION ${CMAKE_INSTALL_BINDIR})

# Debian wants the man page and the changelog compressed without a time stamp.
find_program(GZIP_EXECUTABLE gzip REQUIRED)
configure_file(${PROJECT_SOURCE_DIR}/packaging/changelog.in ${CMAKE_BINARY_DIR}/packaging/changelog @ONLY)
add_custom_command(OUTPUT ${CMAKE_BINARY_DIR}/packaging/ardo-cad.1.gz ${CMAKE_BINARY_DIR}/packaging/changelog.gz
  COMMAND ${GZIP_EXECUTABLE} -9nc ${CMAKE_BINARY_DIR}/ardo-cad.1 > ${CMAKE_BINARY_DIR}/packaging/ardo-cad.1.gz
  COMMAND ${GZIP_EXECUTABLE} -9nc ${CMAKE_BINARY_DIR}/packaging/changelog > ${CMAKE_BINARY_DIR}/packaging/changelog.gz
  DEPENDS ${CMAKE_BINARY_DIR}/ardo-cad.1 ${CMAKE_BINARY_DIR}/packaging/changelog
  COMMENT "Compressed man page and changelog for the package")
add_custom_target(ardo_package_files ALL
  DEPENDS ${CMAKE_BINARY_DIR}/packaging/ardo-cad.1.gz ${CMAKE_BINARY_DIR}/packaging/changelog.gz)
install(FILES ${CMAKE_BINARY_DIR}/packaging/ardo-cad.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(FILES ${CMAKE_BINARY_DIR}/packaging/changelog.gz ${PROJECT_SOURCE_DIR}/packaging/copyright
              ${PROJECT_SOURCE_DIR}/README.md
        DESTINATION ${ARDO_DOC_DIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${ARDO_DOC_DIR})
install(FILES ${PROJECT_SOURCE_DIR}/examples/demo.lsp DESTINATION ${ARDO_DOC_DIR}/examples)
install(FILES ${PROJECT_SOURCE_DIR}/examples/drawings/office.dxf DESTINATION ${ARDO_DOC_DIR}/examples/drawings)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/ardo-cad.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/ardo-cad.svg
        DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ardo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "ardo developers <ardo@example.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "central layer control for CAD, with the CAD host ardo-cad")
# The summary above is the synopsis line; this is the extended description.
set(CPACK_PACKAGE_DESCRIPTION "The module ardo.arx maps layer keys to layer names and properties through one
central layer control file, and creates and changes layers in drawings by key
for the LISP programs of a CAD suite. ardo-cad is a small CAD host for DXF
drawings with an AutoLISP prompt and a command line that loads the module.")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The module loads the help library at run time, so the dependency scan cannot see it.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libchm1")
set(CPACK_STRIP_FILES ON)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_DIRECTORY ${CMAKE_BINARY_DIR}/package)
include(CPack)

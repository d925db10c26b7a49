# The Debian packages: cpack --config BUILD/CPackConfig.cmake -B FOLDER. Configure with CMAKE_INSTALL_PREFIX=/usr, which
# decides where Debian has its libraries.
set(library_package libqzparsersql${PROJECT_VERSION_MAJOR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME qzparsersql)
set(CPACK_PACKAGE_VENDOR "The QZParserSQL authors")
set(CPACK_PACKAGE_CONTACT "The QZParserSQL authors <maintainers@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/FinishPackages.cmake)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_GROUPING IGNORE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(CPACK_COMPONENTS_ALL runtime development)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library_package})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
# What depends on the library, and that the loader has to look for it.
file(WRITE ${PROJECT_BINARY_DIR}/debian/shlibs
    "libQZParserSQL ${PROJECT_VERSION_MAJOR} ${library_package} (>= ${PROJECT_VERSION})\n")
file(WRITE ${PROJECT_BINARY_DIR}/debian/triggers "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA
    ${PROJECT_BINARY_DIR}/debian/shlibs ${PROJECT_BINARY_DIR}/debian/triggers)
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Reads stored SQL queries of four dialects (library)
 Makes syntax trees and query models of the texts of stored queries of MS
 Access, MS SQL Server, MySQL and Oracle.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libqzparsersql-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${library_package} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "libantlr3c-dev, libicu-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "Reads stored SQL queries of four dialects (development)
 Headers, the shared and the static library, guides and examples. Hosts of the
 static library need libantlr3c-dev and libicu-dev too.")

if(QZ_BUILD_HOST)
    list(APPEND CPACK_COMPONENTS_ALL tool)
    set(CPACK_DEBIAN_TOOL_PACKAGE_NAME qzsql)
    set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION database)
    set(CPACK_COMPONENT_TOOL_DESCRIPTION "Shows how stored SQL queries are understood
 Prints tokens, syntax trees and models of queries of MS Access, MS SQL Server,
 MySQL and Oracle, tells what is wrong with them, and keeps catalogs of their
 tables.")
endif()

include(CPack)

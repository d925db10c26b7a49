# What is installed, in three parts: the shared library (runtime), what hosts are built with (development), qzsql (tool).
include(CMakePackageConfigHelpers)

set(cmake_folder ${CMAKE_INSTALL_LIBDIR}/cmake/QZParserSQL)
set(pkgconfig_folder ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(TARGETS QZParserSQL EXPORT QZParserSQLTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(TARGETS QZParserSQL_static EXPORT QZParserSQLStaticTargets
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
    INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
foreach(set QZParserSQLTargets QZParserSQLStaticTargets)
    install(EXPORT ${set} NAMESPACE QZParserSQL:: DESTINATION ${cmake_folder} COMPONENT development)
endforeach()

file(STRINGS ${PROJECT_SOURCE_DIR}/QZParserSQL/installed_headers.txt headers)
foreach(header ${headers})
    cmake_path(GET header PARENT_PATH folder)
    install(FILES ${PROJECT_SOURCE_DIR}/QZParserSQL/${header}
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/QZParserSQL/${folder} COMPONENT development)
endforeach()
# The token types of the grammars.
install(DIRECTORY ${PROJECT_BINARY_DIR}/include/QZParserSQL DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
    COMPONENT development FILES_MATCHING PATTERN *Tokens.h)

configure_package_config_file(cmake/QZParserSQLConfig.cmake.in ${PROJECT_BINARY_DIR}/QZParserSQLConfig.cmake
    INSTALL_DESTINATION ${cmake_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/QZParserSQLConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/QZParserSQLConfig.cmake ${PROJECT_BINARY_DIR}/QZParserSQLConfigVersion.cmake
    cmake/FindANTLR3C.cmake DESTINATION ${cmake_folder} COMPONENT development)

file(RELATIVE_PATH QZ_PREFIX_FROM_PKGCONFIG /${pkgconfig_folder} /)
configure_file(cmake/qzparsersql.pc.in ${PROJECT_BINARY_DIR}/qzparsersql.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/qzparsersql.pc DESTINATION ${pkgconfig_folder} COMPONENT development)

install(DIRECTORY examples docs DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libqzparsersql-dev COMPONENT development
    PATTERN *.in EXCLUDE PATTERN *.py EXCLUDE)
install(FILES LICENSE RENAME copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libqzparsersql-dev
    COMPONENT development)
install(FILES LICENSE RENAME copyright
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/libqzparsersql${PROJECT_VERSION_MAJOR} COMPONENT runtime)

if(QZ_BUILD_HOST)
    # Where zsh looks: a distribution's own packages and what was installed by hand have folders of their own.
    set(zsh_folder zsh/site-functions)
    if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
        set(zsh_folder zsh/vendor-completions)
    endif()
    install(TARGETS qzsql RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tool)
    install(FILES host/qzsql.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT tool)
    install(FILES host/completions/qzsql DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT tool)
    install(FILES host/completions/_qzsql DESTINATION ${CMAKE_INSTALL_DATADIR}/${zsh_folder} COMPONENT tool)
    install(FILES LICENSE RENAME copyright DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/qzsql COMPONENT tool)
endif()

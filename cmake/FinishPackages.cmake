# Run by CPack over what it packs: as Debian wants it, static libraries carry no debug information, pages are
# compressed, and each package has the changes in Debian's form.
file(GLOB_RECURSE libraries ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.a)
file(GLOB_RECURSE pages ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*.1)
list(FILTER pages INCLUDE REGEX "/man/")
foreach(library ${libraries})
    execute_process(COMMAND strip --strip-debug ${library} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
foreach(page ${pages})
    execute_process(COMMAND gzip -9n ${page} COMMAND_ERROR_IS_FATAL ANY)
endforeach()

find_program(python python3 REQUIRED)
file(GLOB_RECURSE licenses ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*/copyright)
foreach(license ${licenses})
    get_filename_component(folder ${license} DIRECTORY)
    execute_process(COMMAND ${python} ${CMAKE_CURRENT_LIST_DIR}/debian_changelog.py
        ${CMAKE_CURRENT_LIST_DIR}/../CHANGELOG.md ${CPACK_PACKAGE_NAME} ${CPACK_PACKAGE_CONTACT}
        OUTPUT_FILE ${folder}/changelog COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND gzip -9n ${folder}/changelog COMMAND_ERROR_IS_FATAL ANY)
endforeach()

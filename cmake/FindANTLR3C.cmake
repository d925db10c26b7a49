# The ANTLR 3 runtime for C: ANTLR3C::ANTLR3C. Its static library is not position-independent, so that a shared library
# can only be made with the shared one.
find_path(ANTLR3C_INCLUDE_DIR antlr3.h)
find_library(ANTLR3C_LIBRARY NAMES libantlr3c.so antlr3c)
mark_as_advanced(ANTLR3C_INCLUDE_DIR ANTLR3C_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(ANTLR3C REQUIRED_VARS ANTLR3C_LIBRARY ANTLR3C_INCLUDE_DIR)

if(ANTLR3C_FOUND AND NOT TARGET ANTLR3C::ANTLR3C)
    add_library(ANTLR3C::ANTLR3C UNKNOWN IMPORTED)
    set_target_properties(ANTLR3C::ANTLR3C PROPERTIES IMPORTED_LOCATION ${ANTLR3C_LIBRARY}
        INTERFACE_INCLUDE_DIRECTORIES ${ANTLR3C_INCLUDE_DIR})
endif()

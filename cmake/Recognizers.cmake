# qz_recognizers(GRAMMAR_FILE): an object library of the recognizers made from a grammar, named after it, with the header
# of its token types at <build>/include/QZParserSQL/<folder>/<Grammar>Tokens.h.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(ANTLR3_TOOL antlr3 REQUIRED)

function(qz_recognizers grammar_file)
    get_filename_component(name ${grammar_file} NAME_WE)
    get_filename_component(folder ${grammar_file} DIRECTORY)
    set(script ${PROJECT_SOURCE_DIR}/cmake/generate_recognizers.py)
    set(out ${PROJECT_BINARY_DIR}/generated/${name})
    cmake_path(SET tokens_header NORMALIZE ${PROJECT_BINARY_DIR}/include/QZParserSQL/${folder}/${name}Tokens.h)
    set(sources ${out}/${name}Lexer.c ${out}/${name}Parser.c ${out}/${name}Grammar.c)
    add_custom_command(
        OUTPUT ${sources} ${tokens_header}
        COMMAND ${Python3_EXECUTABLE} ${script} ${CMAKE_CURRENT_SOURCE_DIR}/${grammar_file} ${out} ${tokens_header}
        DEPENDS ${grammar_file} ${script}
        COMMENT "Generating the recognizers of ${name}"
        VERBATIM)
    add_library(${name}_recognizers OBJECT ${sources} ${tokens_header})
    target_include_directories(${name}_recognizers PRIVATE ${PROJECT_SOURCE_DIR} ${ANTLR3C_INCLUDE_DIR} ${out})
    target_compile_options(${name}_recognizers PRIVATE -w -Werror=implicit-function-declaration)
    target_compile_definitions(${name}_recognizers PRIVATE QZ_BUILDING_LIBRARY)
    set_target_properties(${name}_recognizers PROPERTIES POSITION_INDEPENDENT_CODE ON)
endfunction()

find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(ANTLR3_TOOL antlr3 REQUIRED)

# The recognizers have two forms: fast ones, and plain ones as the tool writes them, to hold the fast ones against.
option(QZ_PLAIN_RECOGNIZERS "Build the library with the plain recognizers" OFF)

set(QZ_TOOL_FOLDER ${PROJECT_BINARY_DIR}/antlr3 CACHE PATH "Where the output of the ANTLR 3 tool is kept; builds may share it")

set(generate_script ${PROJECT_SOURCE_DIR}/cmake/generate_recognizers.py)

# qz_recognizers(GRAMMAR_FILE): two object libraries of the recognizers made from a grammar, <Grammar>_fast_recognizers
# and <Grammar>_plain_recognizers, with the header of its token types at
# <build>/include/QZParserSQL/<folder>/<Grammar>Tokens.h.
function(qz_recognizers grammar_file)
    get_filename_component(name ${grammar_file} NAME_WE)
    get_filename_component(folder ${grammar_file} DIRECTORY)
    set(out ${PROJECT_BINARY_DIR}/generated/${name})
    cmake_path(SET tokens_header NORMALIZE ${PROJECT_BINARY_DIR}/include/QZParserSQL/${folder}/${name}Tokens.h)
    set(plain_parser ${out}/${name}Parser.c)
    set(fast_parser ${out}/${name}FastParser.c)
    set(shared ${out}/${name}Lexer.c ${out}/${name}Grammar.c)
    add_custom_command(
        OUTPUT ${plain_parser} ${fast_parser} ${shared} ${tokens_header}
        COMMAND ${Python3_EXECUTABLE} ${generate_script} ${CMAKE_CURRENT_SOURCE_DIR}/${grammar_file} ${out} ${tokens_header}
            ${QZ_TOOL_FOLDER}
        DEPENDS ${grammar_file} ${generate_script} ${PROJECT_SOURCE_DIR}/cmake/fast_parser.py
        COMMENT "Generating the recognizers of ${name}"
        VERBATIM)
    add_custom_target(${name}_generated DEPENDS ${plain_parser} ${fast_parser} ${shared} ${tokens_header})
    foreach(form plain fast)
        set(library ${name}_${form}_recognizers)
        add_library(${library} OBJECT EXCLUDE_FROM_ALL ${${form}_parser} ${shared})
        add_dependencies(${library} ${name}_generated)
        target_include_directories(${library} PRIVATE ${PROJECT_SOURCE_DIR} ${ANTLR3C_INCLUDE_DIR} ${out})
        target_compile_options(${library} PRIVATE -w -Werror=implicit-function-declaration
            -fexceptions  # std::bad_alloc passes through the rules
            -fno-var-tracking  # takes minutes in functions of this size
            $<$<CONFIG:Release,RelWithDebInfo>:${QZ_RECOGNIZER_OPTIONS}>)
        target_compile_definitions(${library} PRIVATE QZ_BUILDING_LIBRARY)
        set_target_properties(${library} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    endforeach()
    target_compile_definitions(${name}_plain_recognizers PRIVATE QZ_PLAIN_RECOGNIZERS)
endfunction()

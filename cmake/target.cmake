# What every target of ours shares: the strict warnings, and includes from the top of the tree.
add_library(varno_strict INTERFACE)
target_compile_options(varno_strict INTERFACE -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror)
# GCC 12 sees overlapping copies where strings are put together and optimized; there are none.
target_compile_options(varno_strict INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
target_include_directories(varno_strict INTERFACE ${PROJECT_SOURCE_DIR})

option(VARNO_SANITIZE "Build with AddressSanitizer and UndefinedBehaviorSanitizer" OFF)
if(VARNO_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

option(VARNO_FUZZ "Build the fuzz targets; needs Clang" OFF)
if(VARNO_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()

# Of a source file for each system, such as files_posix.cpp and files_windows.cpp, the one to build.
if(WIN32)
    set(VARNO_SYSTEM windows)
else()
    set(VARNO_SYSTEM posix)
endif()

# varno_library(name sources... [LINKS targets...])
function(varno_library name)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PUBLIC varno_strict ${arg_LINKS})
endfunction()

# varno_program(name sources... [LINKS targets...])
function(varno_program name)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE varno_strict ${arg_LINKS})
endfunction()

# varno_test(name sources... [LINKS targets...]): a GoogleTest program registered with CTest.
function(varno_test name)
    cmake_parse_arguments(arg "" "" "LINKS" ${ARGN})
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE varno_strict ${arg_LINKS} GTest::gtest_main)
    add_test(NAME ${name} COMMAND ${name})
endfunction()

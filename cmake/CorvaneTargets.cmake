# What every target of the project has in common, and the functions that declare a floor or a test.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)

# The program, its driver plug-in and the tests share one folder, as they do when installed.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_C_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE_PROGRAM})
endif()

# Most of a test program's compiling is reading Qt's headers. Where no cache of compiled sources spares that, the
# test programs read them once.
if(CCACHE_PROGRAM OR CORVANE_FUZZ)
    option(CORVANE_PRECOMPILE "Precompile Qt's headers for the tests" OFF)
else()
    option(CORVANE_PRECOMPILE "Precompile Qt's headers for the tests" ON)
endif()

add_library(corvane_options INTERFACE)
target_include_directories(corvane_options INTERFACE ${CMAKE_SOURCE_DIR}/source)
target_compile_options(corvane_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow)
target_compile_definitions(corvane_options INTERFACE QT_NO_CAST_TO_ASCII QT_DEPRECATED_WARNINGS)
if(CORVANE_WARNINGS_AS_ERRORS)
    target_compile_options(corvane_options INTERFACE -Werror)
endif()
# A hundred test programs with debug information are linked in half the time by gold.
include(CheckLinkerFlag)
check_linker_flag(CXX -fuse-ld=gold CORVANE_HAS_GOLD)
if(CORVANE_HAS_GOLD AND NOT CORVANE_FUZZ)
    target_link_options(corvane_options INTERFACE -fuse-ld=gold)
endif()
if(CORVANE_SANITIZE)
    # Function names and lines are all that a report of the sanitizers shows.
    string(REPLACE "-g" "-g1" CMAKE_CXX_FLAGS_DEBUG "${CMAKE_CXX_FLAGS_DEBUG}")
    target_compile_options(corvane_options INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(corvane_options INTERFACE -fsanitize=address,undefined)
endif()
if(CORVANE_FUZZ)
    target_compile_options(corvane_options INTERFACE -fsanitize=fuzzer-no-link,address,undefined)
    target_link_options(corvane_options INTERFACE -fsanitize=address,undefined)
endif()

# corvane_floor(NAME SOURCES files... LINK targets...): one folder of `source` as one static library.
# A floor links only floors below it.
function(corvane_floor name)
    cmake_parse_arguments(FLOOR "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} STATIC ${FLOOR_SOURCES})
    target_link_libraries(${name} PUBLIC corvane_options ${FLOOR_LINK})
endfunction()

# corvane_test(NAME [SOURCES files...] LINK targets... [LABELS labels...] [TIMEOUT seconds] [GUILESS]):
# a QtTest program from NAME.cpp, run with CTest: offscreen, unless it is GUILESS and has no use for a screen.
function(corvane_test name)
    cmake_parse_arguments(TEST "GUILESS" "TIMEOUT" "SOURCES;LINK;LABELS" ${ARGN})
    add_executable(${name} ${name}.cpp ${TEST_SOURCES})
    target_link_libraries(${name} PRIVATE corvane_options corvane_testsupport Qt5::Test ${TEST_LINK})
    if(CORVANE_PRECOMPILE)
        # The precompiled headers know all of these modules, and so must each of their readers.
        target_link_libraries(${name} PRIVATE Qt5::Sql)
        target_precompile_headers(${name} REUSE_FROM corvane_testheaders)
    endif()
    add_test(NAME ${name} COMMAND ${name})
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 180)
    endif()
    set(screen "")
    if(NOT TEST_GUILESS)
        set(screen "QT_QPA_PLATFORM=offscreen;")
    endif()
    # Where thread-local storage of loaded drivers and plug-ins lies, the address sanitizer guesses from the C library's
    # own notes. A guess that is wrong ends the search for leaks by "Tracer caught signal 11", so it must not guess.
    set(sanitizers "ASAN_OPTIONS=intercept_tls_get_addr=0;UBSAN_OPTIONS=print_stacktrace=1;")
    string(APPEND sanitizers "LSAN_OPTIONS=suppressions='${CMAKE_SOURCE_DIR}/tests/support/leaks.supp':print_suppressions=0")
    set_tests_properties(${name} PROPERTIES
        TIMEOUT ${TEST_TIMEOUT}
        LABELS "${TEST_LABELS}"
        ENVIRONMENT "${screen}LC_ALL=C.UTF-8;${sanitizers}")
endfunction()

# corvane_uses_servers(TESTS...): tests that need the private database servers. One program at a time works on the
# servers, whose roles belong to all databases; the one that makes an empty server of them comes first. The sanitizer
# sees no more than the last call of what the servers' drivers keep in the library of ciphers, so that these tests
# pass over all that is kept there; the tests of the program's own ciphers do not.
function(corvane_uses_servers)
    foreach(name IN LISTS ARGV)
        get_test_property(${name} ENVIRONMENT environment)
        string(REPLACE "leaks.supp" "leaks_of_drivers.supp" environment "${environment}")
        set_tests_properties(${name} PROPERTIES
            ENVIRONMENT "${environment}"
            FIXTURES_REQUIRED "mariadb;postgresql"
            LABELS servers
            RESOURCE_LOCK access_servers
            TIMEOUT 900)
        if(NOT name STREQUAL test_accessservers)
            set_tests_properties(${name} PROPERTIES DEPENDS test_accessservers)
        endif()
    endforeach()
endfunction()

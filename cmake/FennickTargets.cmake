get_filename_component(FENNICK_ROOT ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)

# The targets of the tree: what every one of them is compiled with, and one function per kind.
# A room links the rooms it may use and nothing else: the link lines are the dependency rule.

add_library(fennick_compile_options INTERFACE)
target_compile_options(
  fennick_compile_options
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wcast-align
            -Wformat=2
            -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 warns of overlapping copies inside its own std::string (bug 105651).
  target_compile_options(fennick_compile_options INTERFACE -fcoroutines -Wduplicated-cond -Wlogical-op
                                                           -Wno-restrict)
endif()
target_compile_definitions(
  fennick_compile_options
  INTERFACE QT_NO_CAST_FROM_ASCII
            QT_NO_CAST_TO_ASCII
            QT_NO_CAST_FROM_BYTEARRAY
            QT_NO_URL_CAST_FROM_STRING
            QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
            QT_NO_KEYWORDS
            QT_NO_FOREACH
            QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# What users run ends rather than goes on with a buffer, a stack or a container that was run over.
# scripts/check_hardening looks for the traces of this in the programs.
target_compile_options(
  fennick_compile_options
  INTERFACE $<$<CONFIG:Release>:-U_FORTIFY_SOURCE
            -D_FORTIFY_SOURCE=3
            -D_GLIBCXX_ASSERTIONS
            -fstack-protector-strong
            -fstack-clash-protection>)
# --as-needed: a program loads only the libraries of the objects that are in it.
target_link_options(fennick_compile_options INTERFACE -pie LINKER:-z,relro LINKER:-z,now
                    LINKER:-z,noexecstack LINKER:--as-needed)

# fennick_room(<name> SOURCES <file>... [LINKS <target>...] [PRIVATE_LINKS <target>...])
function(fennick_room name)
  cmake_parse_arguments(ROOM "" "" "SOURCES;LINKS;PRIVATE_LINKS" ${ARGN})
  add_library(fennick_${name} STATIC ${ROOM_SOURCES})
  target_include_directories(fennick_${name} PUBLIC ${FENNICK_ROOT}/src)
  target_link_libraries(
    fennick_${name}
    PUBLIC ${ROOM_LINKS}
    PRIVATE fennick_compile_options ${ROOM_PRIVATE_LINKS})
endfunction()

# fennick_program(<name> SOURCES <file>... LINKS <target>...)
function(fennick_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_link_libraries(${name} PRIVATE fennick_compile_options ${PROGRAM_LINKS})
endfunction()

# fennick_test(<name> SOURCES <file>... LINKS <target>... [TIMEOUT <seconds>] [SERIAL] [LABEL <label>])
# A Qt Test program; runs offscreen, so that no display is needed. SERIAL keeps tests that measure
# time from sharing the processor with others.
function(fennick_test name)
  cmake_parse_arguments(TEST "SERIAL" "TIMEOUT;LABEL" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${TEST_SOURCES})
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_include_directories(${name} PRIVATE ${FENNICK_ROOT}/tests)
  target_compile_definitions(${name} PRIVATE FENNICK_SOURCE_DIR="${FENNICK_ROOT}"
                                             FENNICK_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  target_link_libraries(${name} PRIVATE fennick_compile_options ${TEST_LINKS} Qt6::Test)
  add_test(NAME ${name} COMMAND ${name})
  if(NOT TEST_TIMEOUT)
    set(TEST_TIMEOUT 120)
  endif()
  set_tests_properties(
    ${name}
    PROPERTIES TIMEOUT ${TEST_TIMEOUT}
               ENVIRONMENT
               "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=;LSAN_OPTIONS=suppressions=${FENNICK_ROOT}/tests/leaks_of_libraries.txt:print_suppressions=0;UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1"
  )
  if(TEST_SERIAL)
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  endif()
  if(TEST_LABEL)
    set_tests_properties(${name} PROPERTIES LABELS ${TEST_LABEL})
  endif()
endfunction()

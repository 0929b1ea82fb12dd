get_filename_component(FENNICK_ROOT ${CMAKE_CURRENT_LIST_DIR} DIRECTORY)

# The targets of the tree: what every one of them is compiled with, and one function per kind.
# A room links the rooms it may use and nothing else: the link lines are the dependency rule.

# Warnings are errors where CMAKE_COMPILE_WARNING_AS_ERROR is on: in every preset but `release`, so that a new
# compiler's opinion stops no one who only builds the program.
add_library(fennick_compile_options INTERFACE)
target_compile_options(
  fennick_compile_options
  INTERFACE -pthread # some libraries ask for it, and precompiled headers are for one set of options
            -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wcast-align
            -Wformat=2)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # GCC 12 warns of overlapping copies inside its own std::string (bug 105651).
  target_compile_options(fennick_compile_options INTERFACE -fcoroutines -Wduplicated-cond -Wlogical-op
                                                           -Wno-restrict)
  if(CMAKE_UNITY_BUILD)
    # Taken together with others, a file counts as a header, where a coroutine had better not keep a type that
    # other files cannot name.
    target_compile_options(fennick_compile_options INTERFACE -Wno-subobject-linkage)
  endif()
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
add_library(fennick_hardening INTERFACE)
target_compile_options(
  fennick_hardening
  INTERFACE $<$<CONFIG:Release>:-U_FORTIFY_SOURCE
            -D_FORTIFY_SOURCE=3
            -D_GLIBCXX_ASSERTIONS
            -fstack-protector-strong
            -fstack-clash-protection>)
target_link_options(fennick_hardening INTERFACE ${fennick_platform_link_options})

# Headers that most files include anyway, compiled once. A file still includes what it uses: clang-tidy compiles
# each by itself.
set(fennick_common_headers
    <QByteArray>
    <QCoreApplication>
    <QDir>
    <QFile>
    <QFileInfo>
    <QHash>
    <QJsonDocument>
    <QJsonObject>
    <QList>
    <QRegularExpression>
    <QString>
    <QStringList>
    <algorithm>
    <array>
    <chrono>
    <cmath>
    <expected>
    <functional>
    <memory>
    <optional>
    <vector>)

# fennick_room(<name> [MOC] SOURCES <file>... [LINKS <target>...] [PRIVATE_LINKS <target>...] [HEADERS <header>...])
# MOC: the room has classes with Q_OBJECT. HEADERS: precompiled beside the common ones.
function(fennick_room name)
  cmake_parse_arguments(ROOM "MOC" "" "SOURCES;LINKS;PRIVATE_LINKS;HEADERS" ${ARGN})
  add_library(fennick_${name} STATIC ${ROOM_SOURCES})
  set_target_properties(fennick_${name} PROPERTIES AUTOMOC ${ROOM_MOC})
  target_include_directories(fennick_${name} PUBLIC ${FENNICK_ROOT}/src)
  target_link_libraries(
    fennick_${name}
    PUBLIC ${ROOM_LINKS}
    PRIVATE fennick_compile_options fennick_hardening ${ROOM_PRIVATE_LINKS})
  if(name STREQUAL "text" OR ROOM_HEADERS)
    target_precompile_headers(fennick_${name} PRIVATE ${fennick_common_headers} ${ROOM_HEADERS})
  else()
    target_precompile_headers(fennick_${name} REUSE_FROM fennick_text)
  endif()
endfunction()

# fennick_engine_room(<name> ...): a room of the engine, engine/<name>, with the arguments of fennick_room.
function(fennick_engine_room name)
  fennick_room(engine_${name} ${ARGN})
  target_include_directories(fennick_engine_${name} PUBLIC ${FENNICK_ROOT})
endfunction()

# fennick_program(<name> SOURCES <file>... LINKS <target>...)
function(fennick_program name)
  cmake_parse_arguments(PROGRAM "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${PROGRAM_SOURCES})
  target_link_libraries(${name} PRIVATE fennick_compile_options fennick_hardening ${PROGRAM_LINKS})
endfunction()

# Qt6::Test as it is, but for a definition with each target's folder, with which no two programs could share their
# precompiled headers. Nothing here looks for files by it.
function(fennick_find_qt_test)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
  add_library(fennick_qt_test INTERFACE)
  target_include_directories(fennick_qt_test SYSTEM
                             INTERFACE $<TARGET_PROPERTY:Qt6::Test,INTERFACE_INCLUDE_DIRECTORIES>)
  target_link_libraries(fennick_qt_test INTERFACE $<LINK_ONLY:Qt6::Test>)
endfunction()

# fennick_test_library(<name> SOURCES <file>... [LINKS <target>...]): what several test programs share.
function(fennick_test_library name)
  cmake_parse_arguments(LIBRARY "" "" "SOURCES;LINKS" ${ARGN})
  add_library(${name} STATIC ${LIBRARY_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PUBLIC ${FENNICK_ROOT}/tests ${CMAKE_CURRENT_SOURCE_DIR})
  target_compile_definitions(${name} PRIVATE FENNICK_SOURCE_DIR="${FENNICK_ROOT}"
                                             FENNICK_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  target_link_libraries(${name} PUBLIC ${LIBRARY_LINKS} PRIVATE fennick_compile_options fennick_hardening)
  target_precompile_headers(${name} REUSE_FROM fennick_text)
endfunction()

# fennick_tests(<room> UNITS <unit>... [PREFIX <text>] [SOURCES <file>...] LINKS <target>... [SLOW <unit>...]
#               [UNSANITIZED <unit>...] [RECOGNISING <unit>...])
# One program for the tests of a room, tests/<room>_tests in the build folder. Each unit is a file <unit>_test.cpp and,
# for CTest, a test <prefix><unit>_test in a process of its own, offscreen, so that no display is needed.
# SLOW ones begin first. RECOGNISING ones read large pages, for which the engine has 25 seconds: beside each run fewer
# others. UNSANITIZED ones gain nothing from the sanitizers: they hardly enter our own code, or only what
# another test enters as well.
# Test code is not optimised: that saves more building than running.
function(fennick_tests room)
  cmake_parse_arguments(TESTS "" "PREFIX" "UNITS;SOURCES;LINKS;SLOW;UNSANITIZED;RECOGNISING" ${ARGN})
  set(program ${room}_tests)
  set(files ${TESTS_UNITS})
  list(TRANSFORM files APPEND _test.cpp)
  create_test_sourcelist(sources ${program}_main.cpp ${files})
  set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${program}_main.cpp
                              PROPERTIES COMPILE_OPTIONS -w SKIP_PRECOMPILE_HEADERS ON)
  add_executable(${program} ${sources} ${TESTS_SOURCES})
  set_target_properties(${program} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/tests)
  target_include_directories(${program} PRIVATE ${FENNICK_ROOT}/tests)
  target_compile_definitions(${program} PRIVATE FENNICK_SOURCE_DIR="${FENNICK_ROOT}"
                                                FENNICK_BIN_DIR="${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
  target_compile_options(${program} PRIVATE -O0)
  target_link_libraries(${program} PRIVATE fennick_compile_options ${TESTS_LINKS} fennick_qt_test Qt6::Widgets
                                           Qt6::Network)
  target_link_options(${program} PRIVATE ${fennick_platform_smaller_programs})
  if(room STREQUAL "text")
    target_precompile_headers(${program} PRIVATE ${fennick_common_headers} <QApplication> <QJsonArray> <QProcess>
                              <QSignalSpy> <QTemporaryDir> <QTest>)
  else()
    target_precompile_headers(${program} REUSE_FROM text_tests)
  endif()
  # Up to GCC 13 the sanitizer takes some thread-local memory for that of a glibc before 2.25 and crashes at exit:
  # github.com/google/sanitizers/issues/1322
  set(sanitizers
      "ASAN_OPTIONS=intercept_tls_get_addr=0"
      "LSAN_OPTIONS=suppressions=${FENNICK_ROOT}/tests/leaks_of_libraries.txt:print_suppressions=0"
      "UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1")
  foreach(unit ${TESTS_UNITS})
    set(name ${TESTS_PREFIX}${unit}_test)
    add_test(NAME ${name} COMMAND ${program} ${unit}_test)
    set_tests_properties(
      ${name}
      PROPERTIES
        TIMEOUT
        1800
        ENVIRONMENT
        "QTEST_FUNCTION_TIMEOUT=1780000;QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8;LANGUAGE=;${sanitizers}"
    )
    if(unit IN_LIST TESTS_SLOW)
      set_tests_properties(${name} PROPERTIES COST 100)
    endif()
    if(unit IN_LIST TESTS_RECOGNISING)
      set_tests_properties(${name} PROPERTIES PROCESSORS 3)
    endif()
    if(unit IN_LIST TESTS_UNSANITIZED)
      set_tests_properties(${name} PROPERTIES LABELS unsanitized)
    endif()
  endforeach()
endfunction()

find_package(Qt6 6.4 REQUIRED COMPONENTS LinguistTools)

# fennick_translations(<target> LANGUAGES <code>...)
# Compiles translations/fennick_<code>.ts and puts the result into every program that links the target, as the
# resource /translations/fennick_<code>.qm: it is found whether or not the program is installed.
# scripts/update_translations keeps the lists up to date.
function(fennick_translations target)
  cmake_parse_arguments(TRANSLATIONS "" "" "LANGUAGES" ${ARGN})
  set(lists ${TRANSLATIONS_LANGUAGES})
  list(TRANSFORM lists PREPEND ${FENNICK_ROOT}/translations/fennick_)
  list(TRANSFORM lists APPEND .ts)
  qt_add_lrelease(${target} TS_FILES ${lists} QM_FILES_OUTPUT_VARIABLE compiled)
  qt_add_resources(${target} ${target}_translations PREFIX /translations BASE ${CMAKE_CURRENT_BINARY_DIR}
                   FILES ${compiled})
endfunction()

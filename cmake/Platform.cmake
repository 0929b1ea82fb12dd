# The system that the program is built for: `platform` ends the names of the files in src/platform that are compiled
# for this system only, and of the file here that finds what they need.
if(CMAKE_SYSTEM_NAME STREQUAL "Linux")
  set(platform linux)
else()
  message(FATAL_ERROR "src/platform has no implementation for ${CMAKE_SYSTEM_NAME}: CONTRIBUTING.md says what it takes.")
endif()

include(Platform_${platform})

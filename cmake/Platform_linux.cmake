# What src/platform/*_linux.cpp link: D-Bus, the secret store, X11, and the threads of the engine's libraries.
find_package(Qt6 6.4 REQUIRED COMPONENTS DBus)
find_package(OpenMP REQUIRED COMPONENTS CXX)
pkg_check_modules(LIBSECRET REQUIRED IMPORTED_TARGET libsecret-1)
pkg_check_modules(XCB REQUIRED IMPORTED_TARGET xcb)

set(fennick_platform_libraries Qt6::DBus ${OpenMP_CXX_LIBRARIES} PkgConfig::LIBSECRET PkgConfig::XCB)

# A program loads only the libraries of the objects that are in it.
set(fennick_platform_smaller_programs LINKER:--as-needed)
set(fennick_platform_link_options -pie LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack
                                  ${fennick_platform_smaller_programs})

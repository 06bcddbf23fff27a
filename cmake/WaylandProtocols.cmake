# wayland_protocols(NAME TEXT…): a library of what wayland-scanner makes of descriptions of protocols.
find_package(PkgConfig REQUIRED)
pkg_check_modules(wayland_client REQUIRED IMPORTED_TARGET GLOBAL wayland-client)
find_program(wayland_scanner wayland-scanner REQUIRED)

function(wayland_protocols name)
  add_library(${name} STATIC)
  foreach(text IN LISTS ARGN)
    cmake_path(GET text STEM protocol)
    set(made "${CMAKE_CURRENT_BINARY_DIR}/${protocol}")
    add_custom_command(OUTPUT "${made}.h" "${made}.c" DEPENDS "${text}" VERBATIM
      COMMAND "${wayland_scanner}" client-header "${text}" "${made}.h"
      COMMAND "${wayland_scanner}" private-code "${text}" "${made}.c")
    target_sources(${name} PRIVATE "${made}.h" "${made}.c")
  endforeach()
  target_include_directories(${name} SYSTEM INTERFACE "${CMAKE_CURRENT_BINARY_DIR}")
  target_link_libraries(${name} PUBLIC PkgConfig::wayland_client)
endfunction()

# The manual page, the change logs and what is told about rights, as Debian wants them: compressed
# without a date, so that equal sources give equal files.
find_program(GZIP gzip REQUIRED)
set(documents "")

# compressed(SOURCE NAME FOLDER): installs SOURCE as NAME.gz.
function(compressed source name folder)
  set(file "${CMAKE_CURRENT_BINARY_DIR}/${name}.gz")
  add_custom_command(OUTPUT "${file}"
    COMMAND "${GZIP}" -9nc "${source}" > "${file}"
    DEPENDS "${source}"
    VERBATIM)
  set(documents ${documents} "${file}" PARENT_SCOPE)
  install(FILES "${file}" DESTINATION "${folder}")
endfunction()

# in_field(VARIABLE FILE [AFTER]): the text of FILE, from AFTER on, as a field of Debian's copyright
# format: lines begin with a space, empty ones are a dot.
function(in_field variable file)
  file(READ "${file}" text)
  if(ARGC GREATER 2)
    string(FIND "${text}" "${ARGV2}" start)
    string(SUBSTRING "${text}" ${start} -1 text)
  endif()
  string(REPLACE "\r" "" text "${text}")
  string(STRIP "${text}" text)
  string(REGEX REPLACE "[ \t]+\n" "\n" text "${text}")
  string(REPLACE "\n" "\n " text " ${text}")
  string(REPLACE "\n \n" "\n .\n" text "${text}")
  string(REPLACE "\n \n" "\n .\n" text "${text}")
  set(${variable} "${text}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
endfunction()

set(resources "${PROJECT_SOURCE_DIR}/resources")
in_field(OFL "${resources}/fonts/OFL.txt" "This Font Software")
in_field(EXPAT "${resources}/symbols/LICENSE" "Permission is")
in_field(GAZETTEER "${resources}/gazetteer/LICENCE")
configure_file(copyright.in copyright @ONLY)
configure_file(noonward.1.in noonward.1 @ONLY)

set(documentation "${CMAKE_INSTALL_DATAROOTDIR}/doc/noonward")
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/copyright" DESTINATION "${documentation}")
compressed("${CMAKE_CURRENT_BINARY_DIR}/noonward.1" noonward.1 "${CMAKE_INSTALL_MANDIR}/man1")
compressed("${PROJECT_SOURCE_DIR}/CHANGELOG.md" changelog "${documentation}")
compressed("${CMAKE_CURRENT_SOURCE_DIR}/changelog.Debian" changelog.Debian "${documentation}")

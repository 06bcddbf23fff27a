# The drawings as pictures of every size that icon themes ask for. Up to 32 pixels they come from a
# drawing of their own, whose edges lie on pixels.
find_program(RSVG_CONVERT rsvg-convert REQUIRED)
set(icons "${CMAKE_CURRENT_SOURCE_DIR}/icons")
set(icon_pictures "")
foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
  set(drawing "${icons}/noonward.svg")
  if(size LESS_EQUAL 32)
    set(drawing "${icons}/noonward-small.svg")
  endif()
  set(picture "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}/noonward.png")
  add_custom_command(OUTPUT "${picture}"
    COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}"
    COMMAND "${RSVG_CONVERT}" --width=${size} --height=${size} "--output=${picture}" "${drawing}"
    DEPENDS "${drawing}"
    VERBATIM)
  list(APPEND icon_pictures "${picture}")
  install(FILES "${picture}"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
endforeach()
install(FILES "${icons}/noonward.svg"
  DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")

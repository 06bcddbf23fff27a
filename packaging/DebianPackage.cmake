# scripts/package.sh makes the package from this.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME noonward)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Noonward developers <noonward@ostrelmead.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "world clock and meeting planner at the top of the screen")
set(CPACK_PACKAGE_DESCRIPTION
"Noonward waits at the top centre of the screen, around the camera's notch
where there is one. Rest the pointer there and two favourite places show
their clocks; click, and every place hangs down as a strip of 24 hours, all
lined up on the same moment and coloured by that place's working hours,
weekends, public holidays and days off.

The fairest hour for a meeting is outlined; a proposed time shows what it
means everywhere, ready to paste into an email.")

# Libraries are found by their use; Qt's plugins for X and for TLS lie in the packages of the
# libraries they belong to. Not linked, but needed: the time zones, a font with the keys' signs
# (⇧ ⌃ ⌥), the folder for icons, and the bus by which copies find one another.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
string(JOIN ", " CPACK_DEBIAN_PACKAGE_DEPENDS
  "default-dbus-session-bus | dbus-session-bus"
  fonts-dejavu-core
  hicolor-icon-theme
  tzdata)
# For https, by which public holidays come; loaded with the first sound; Qt's plugin to be a Wayland
# client; the desktop's colour scheme, and keys inside Wayland.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
  ca-certificates
  libcanberra-pulse
  libcanberra0
  qt6-wayland
  xdg-desktop-portal)

include(CPack)

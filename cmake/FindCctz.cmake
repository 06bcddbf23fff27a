# cctz as Debian packages it: a header folder and a library, without CMake or pkg-config files.
# Defines the target cctz::cctz.
find_path(CCTZ_INCLUDE_DIR cctz/time_zone.h)
find_library(CCTZ_LIBRARY cctz)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Cctz DEFAULT_MSG CCTZ_LIBRARY CCTZ_INCLUDE_DIR)
mark_as_advanced(CCTZ_INCLUDE_DIR CCTZ_LIBRARY)

if(Cctz_FOUND AND NOT TARGET cctz::cctz)
  add_library(cctz::cctz UNKNOWN IMPORTED)
  set_target_properties(cctz::cctz PROPERTIES
    IMPORTED_LOCATION "${CCTZ_LIBRARY}"
    INTERFACE_INCLUDE_DIRECTORIES "${CCTZ_INCLUDE_DIR}")
endif()

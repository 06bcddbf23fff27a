# Warnings for our own targets only: `target_link_libraries(t PRIVATE noonward_warnings)`. They are
# errors in the presets by which the program is developed; elsewhere another compiler may find some.
add_library(noonward_warnings INTERFACE)
target_compile_options(noonward_warnings INTERFACE
  -Wall -Wextra -Wpedantic
  -Wconversion -Wsign-conversion -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wcast-align -Wimplicit-fallthrough -Wundef
  # An initialiser that names some members leaves the others at their declared defaults: meant.
  -Wno-missing-field-initializers
)

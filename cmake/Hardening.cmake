# What makes a mistake in memory hard to use against the user: in every optimised build, so that what
# is tested and measured is what is shipped. Debug builds do without; they are for sanitizers, which
# know better, and for stepping through.
set(not_debug "$<NOT:$<CONFIG:Debug>>")
add_compile_options("$<${not_debug}:-fstack-protector-strong;-fstack-clash-protection;-fcf-protection>")
add_compile_definitions("$<${not_debug}:_FORTIFY_SOURCE=2;_GLIBCXX_ASSERTIONS>")
add_link_options("$<${not_debug}:LINKER:-z,relro,-z,now,-z,noexecstack>")

include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

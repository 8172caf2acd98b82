# One set of warnings for everything we compile. -Wmissing-declarations (g++) and -Wmissing-prototypes
# (clang++) refuse a definition whose signature differs from its prototype.
add_library(zors_warnings INTERFACE)
target_compile_options(zors_warnings INTERFACE
  -Wall -Wextra -Wshadow -Wconversion -Werror
  $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wmissing-declarations -Wno-ignored-attributes -Wno-psabi>
  $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wmissing-prototypes>)

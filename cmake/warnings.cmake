# One set of warnings for everything we compile. -Wmissing-declarations (g++) and -Wmissing-prototypes (clang++) notice a
# definition whose signature differs from its prototype; without -Werror such a library does not link.
add_library(zors_warnings INTERFACE)
target_compile_options(zors_warnings INTERFACE
  -Wall -Wextra -Wshadow -Wconversion $<$<BOOL:${ZORS_WERROR}>:-Werror>
  $<$<COMPILE_LANG_AND_ID:CXX,GNU>:-Wmissing-declarations -Wno-ignored-attributes -Wno-psabi>
  $<$<COMPILE_LANG_AND_ID:CXX,Clang>:-Wmissing-prototypes>)

# Two sets of flags that targets link: vorn_strict for our own code, vorn_hardened for what is shipped.
# Sanitizers are given to everything in the tree, the test framework included.

if(VORN_SANITIZE)
  # The vptr check is off: it compares run-time type information, and the interface classes' is hidden in the
  # shared object, so a host's copy is another one.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-sanitize=vptr
    -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()

add_library(vorn_strict INTERFACE)
if(PROJECT_IS_TOP_LEVEL)
  target_compile_options(vorn_strict INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wshadow -Wold-style-cast -Wcast-align -Wcast-qual
    -Wextra-semi -Wformat=2 -Wundef -Wunused -Woverloaded-virtual
    # The interfaces lack virtual destructors on purpose: one would take a slot.
    -Wno-non-virtual-dtor
    $<$<CXX_COMPILER_ID:GNU>:-Wduplicated-branches -Wduplicated-cond -Wlogical-op -Wsuggest-override>
    $<$<CXX_COMPILER_ID:Clang>:-Wimplicit-fallthrough -Wsuggest-override -Wunreachable-code>
  )
endif()
if(VORN_WARNINGS_AS_ERRORS)
  target_compile_options(vorn_strict INTERFACE -Werror)
endif()

add_library(vorn_hardened INTERFACE)
target_compile_options(vorn_hardened INTERFACE
  -ffunction-sections -fdata-sections
  # The library calls its own definitions directly; a host replaces none of them.
  -fno-semantic-interposition
  # Unique symbols would keep the library in the process after dlclose.
  $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>
)
target_link_options(vorn_hardened INTERFACE
  LINKER:--as-needed LINKER:--gc-sections LINKER:-Bsymbolic-functions
  LINKER:-z,relro LINKER:-z,now LINKER:-z,noexecstack LINKER:-z,text
)
if(NOT VORN_SANITIZE)
  set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
  target_compile_options(vorn_hardened INTERFACE
    -fstack-protector-strong $<${optimised}:-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2>)
  # The sanitizers' functions are found when the host starts, so only other builds can be held to this.
  target_link_options(vorn_hardened INTERFACE LINKER:-z,defs)
endif()

# Warnings and sanitizers shared by every target of the project.
add_library(foedit_build_flags INTERFACE)
target_compile_options(foedit_build_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
  $<$<BOOL:${FOEDIT_WERROR}>:-Werror>)
if(FOEDIT_BUILD_FUZZ AND CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  # libFuzzer steers by coverage of the code under test, so the library itself is
  # instrumented; the fuzz programs add libFuzzer's main when they link.
  target_compile_options(foedit_build_flags INTERFACE
    -fsanitize=fuzzer-no-link,address,undefined -fno-omit-frame-pointer)
  target_link_options(foedit_build_flags INTERFACE -fsanitize=address,undefined)
elseif(FOEDIT_SANITIZE)
  target_compile_options(foedit_build_flags INTERFACE
    -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_link_options(foedit_build_flags INTERFACE -fsanitize=address,undefined)
endif()

# Adds the project's flags to a target without exporting them with the package.
function(foedit_use_build_flags target)
  target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:foedit_build_flags>)
endfunction()

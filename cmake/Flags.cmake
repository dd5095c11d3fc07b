# cotirama_flags: every target of ours links it, and no flag is set anywhere else.

add_library(cotirama_flags INTERFACE)
target_compile_features(cotirama_flags INTERFACE cxx_std_20)
target_compile_options(cotirama_flags INTERFACE -ffp-contract=off -Wall -Wextra -Werror
  $<$<CONFIG:Debug>:-O1>
  $<$<CONFIG:Release>:-O2>)
target_compile_definitions(cotirama_flags INTERFACE $<$<CONFIG:Debug>:_GLIBCXX_ASSERTIONS>)

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # -Wno-restrict: GCC 12 sees overlaps inside its own std::string from -O2 on.
  target_compile_options(cotirama_flags INTERFACE
    -Wpedantic -Wconversion -Wshadow $<$<CONFIG:Release>:-Wno-restrict>)
endif()

if(COTIRAMA_SANITIZE)
  set(sanitize -fsanitize=${COTIRAMA_SANITIZE} -fno-sanitize-recover=all)
  target_compile_options(cotirama_flags INTERFACE ${sanitize} -fno-omit-frame-pointer -g1
    $<$<BOOL:$<TARGET_PROPERTY:COTIRAMA_UNO>>:-fno-sanitize=vptr>)
  target_link_options(cotirama_flags INTERFACE ${sanitize})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Instrumented code hides from GCC that a value was set.
    target_compile_options(cotirama_flags INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
if(COTIRAMA_FUZZ)
  target_compile_options(cotirama_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

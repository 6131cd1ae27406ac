# Build options of this project's own targets. They are target options, not
# directory-wide ones, so that a host that adds the project with
# add_subdirectory gets neither its warnings nor its sanitizers.

set(TERRIX_SANITIZE_FLAGS -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)

function(terrix_target_options target)
  if(CMAKE_CXX_COMPILER_ID MATCHES "GNU|Clang")
    target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic)
  endif()
  if(TERRIX_SANITIZE)
    target_compile_options(${target} PRIVATE ${TERRIX_SANITIZE_FLAGS})
    target_link_options(${target} PRIVATE -fsanitize=address,undefined)
  endif()
  if(TERRIX_BUILD_FUZZER)
    # Coverage for libFuzzer everywhere; only the fuzz target links its main.
    target_compile_options(${target} PRIVATE -fsanitize=fuzzer-no-link)
  endif()
endfunction()

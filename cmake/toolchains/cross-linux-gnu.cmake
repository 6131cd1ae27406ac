# A static build of the terrix tool for another Linux target with Debian's
# cross compiler, for the comparison of scripts/compare-platforms:
#   cmake -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/cross-linux-gnu.cmake -DTERRIX_CROSS_TRIPLET=aarch64-linux-gnu
#         -DTERRIX_CROSS_HEADERS=DIR
# The libraries the tool builds on are header-only (Boost, nlohmann-json,
# CLI11) and their headers serve every target, so the host's packages are
# found as they are. Their include directory, /usr/include, must not come
# before the cross compiler's own C and C++ headers: it is taken for one the
# compiler has, and DIR (links to the three libraries' headers alone) is
# searched instead.

set(CMAKE_SYSTEM_NAME Linux)
string(REGEX REPLACE "-.*" "" CMAKE_SYSTEM_PROCESSOR "${TERRIX_CROSS_TRIPLET}")
set(CMAKE_CXX_COMPILER ${TERRIX_CROSS_TRIPLET}-g++)
set(CMAKE_CXX_FLAGS_INIT "-isystem ${TERRIX_CROSS_HEADERS}")
# 32-bit x86 with SSE2 arithmetic, as MSVC builds for it by default: with
# x87's, g++ keeps intermediate results of double expressions in 80 bits
# (which C++ allows), and answers worked out from the values (a layer's
# bounds where a division splits) may differ in their last bit. The values
# read and written never do; they are exact on either.
if(TERRIX_CROSS_TRIPLET MATCHES "^i[3-6]86")
  string(APPEND CMAKE_CXX_FLAGS_INIT " -msse2 -mfpmath=sse")
endif()
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
list(APPEND CMAKE_CXX_IMPLICIT_INCLUDE_DIRECTORIES /usr/include)
# A static program of the target runs under qemu or, for i686, on x86-64.
set(CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TERRIX_CROSS_TRIPLET TERRIX_CROSS_HEADERS)

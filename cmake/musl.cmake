# The routers' C library, musl: Debian's clang with the headers of its libc++, and musl as scripts/musl-sysroot unpacks it.
# KOVA_MUSL is the machine: x86_64 or aarch64, whose programs run under qemu-user-static.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KOVA_MUSL)
get_filename_component(sysroot ${CMAKE_CURRENT_LIST_DIR}/../build/musl-${KOVA_MUSL}/sysroot ABSOLUTE)
set(machine ${KOVA_MUSL}-linux-musl)
set(libraries ${sysroot}/usr/lib/${machine})

set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR ${KOVA_MUSL})
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_C_COMPILER_TARGET ${machine})
set(CMAKE_CXX_COMPILER_TARGET ${machine})

set(CMAKE_C_FLAGS_INIT "-nostdlibinc -isystem ${sysroot}/usr/include/${machine}")
if(KOVA_MUSL STREQUAL "aarch64")
  string(APPEND CMAKE_C_FLAGS_INIT " -mno-outline-atomics")
  set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64-static -L ${sysroot})
else()
  set(CMAKE_CROSSCOMPILING_EMULATOR ${sysroot}/lib/ld-musl-${KOVA_MUSL}.so.1)
endif()
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem /usr/lib/llvm-14/include/c++/v1 -D_LIBCPP_HAS_MUSL_LIBC ${CMAKE_C_FLAGS_INIT}")

set(CMAKE_SHARED_LINKER_FLAGS_INIT "-Wno-unused-command-line-argument -fuse-ld=lld -nostdlib -L${sysroot}/lib/${machine}")
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "${CMAKE_SHARED_LINKER_FLAGS_INIT} ${libraries}/crt1.o ${libraries}/crti.o ${libraries}/crtn.o \
-Wl,--dynamic-linker=/lib/ld-musl-${KOVA_MUSL}.so.1")
set(CMAKE_C_STANDARD_LIBRARIES -lc)
set(CMAKE_CXX_STANDARD_LIBRARIES -lc)

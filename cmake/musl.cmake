# The routers' C library, musl: Debian's clang with the headers of its libc++, and musl as scripts/musl-sysroot unpacks it.
# KOVA_MUSL is the machine: x86_64, or aarch64, armhf or mipsel, whose programs run under qemu-user-static.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KOVA_MUSL)
get_filename_component(sysroot ${CMAKE_CURRENT_LIST_DIR}/../build/musl-${KOVA_MUSL}/sysroot ABSOLUTE)
set(machine ${KOVA_MUSL}-linux-musl)
if(KOVA_MUSL STREQUAL "armhf")
  set(machine arm-linux-musleabihf)
endif()
set(libraries ${sysroot}/usr/lib/${machine})

set(CMAKE_SYSTEM_NAME Linux)
string(REGEX MATCH "^[^-]*" CMAKE_SYSTEM_PROCESSOR ${machine})
set(CMAKE_C_COMPILER clang-14)
set(CMAKE_CXX_COMPILER clang++-14)
set(CMAKE_C_COMPILER_TARGET ${machine})
set(CMAKE_CXX_COMPILER_TARGET ${machine})

set(emulator "qemu-${CMAKE_SYSTEM_PROCESSOR}-static;-L;${sysroot}")
set(CMAKE_C_FLAGS_INIT "-nostdlibinc -isystem ${sysroot}/usr/include/${machine}")
if(KOVA_MUSL STREQUAL "aarch64")
  string(APPEND CMAKE_C_FLAGS_INIT " -mno-outline-atomics")
elseif(KOVA_MUSL STREQUAL "x86_64")
  set(emulator ${sysroot}/lib/ld-musl-x86_64.so.1)
endif()
set(CMAKE_CROSSCOMPILING_EMULATOR "${emulator}" CACHE STRING "")
set(CMAKE_CXX_FLAGS_INIT "-nostdinc++ -isystem /usr/lib/llvm-14/include/c++/v1 -D_LIBCPP_HAS_MUSL_LIBC ${CMAKE_C_FLAGS_INIT}")

set(linker -fuse-ld=lld)
set(CMAKE_C_STANDARD_LIBRARIES -lc)
if(KOVA_MUSL MATCHES "^(armhf|mipsel)$")
  # Divisions of 64 bits are functions of the compiler's library. Debian has GCC's, which not every linker takes.
  string(REPLACE musl gnu gnu_machine ${machine})
  set(linker --ld-path=${gnu_machine}-ld)
  execute_process(COMMAND ${gnu_machine}-gcc -print-libgcc-file-name OUTPUT_VARIABLE libgcc
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  string(APPEND CMAKE_C_STANDARD_LIBRARIES " ${libgcc}")
endif()
set(CMAKE_CXX_STANDARD_LIBRARIES ${CMAKE_C_STANDARD_LIBRARIES})

set(CMAKE_SHARED_LINKER_FLAGS_INIT "-Wno-unused-command-line-argument ${linker} -nostdlib -L${sysroot}/lib/${machine}")
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "${CMAKE_SHARED_LINKER_FLAGS_INIT} ${libraries}/crt1.o ${libraries}/crti.o ${libraries}/crtn.o \
-Wl,--dynamic-linker=/lib/ld-musl-${KOVA_MUSL}.so.1")

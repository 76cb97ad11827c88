# Another processor, with Debian's cross compiler. KOVA_MACHINE is its name there, for example mipsel-linux-gnu;
# programs run under qemu-user-static.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES KOVA_MACHINE)
string(REGEX MATCH "^[^-]*" CMAKE_SYSTEM_PROCESSOR ${KOVA_MACHINE})
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${KOVA_MACHINE}-gcc)
set(CMAKE_CXX_COMPILER ${KOVA_MACHINE}-g++)
# In the cache lab/launch finds it.
set(CMAKE_CROSSCOMPILING_EMULATOR "qemu-${CMAKE_SYSTEM_PROCESSOR}-static;-L;/usr/${KOVA_MACHINE}" CACHE STRING "")

# The plug-in: every source of a folder logs under the folder's module name.

set(KOVA_MODULES core=pkg-tool handlers/pkg-mgmt=pkg-mgmt handlers/pkg-dev=pkg-dev handlers/pkg-lan=pkg-lan
    handlers/pkg-wan=pkg-wan handlers/pkg-diag=pkg-diag handlers/pkg-mobile=pkg-mobile)

add_library(kova-datamodel SHARED)
foreach(entry IN LISTS KOVA_MODULES)
  string(REPLACE "=" ";" entry ${entry})
  list(GET entry 0 folder)
  list(GET entry 1 module)
  file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
  set_source_files_properties(${sources} PROPERTIES COMPILE_DEFINITIONS KOVA_MODULE="${module}.c")
  target_sources(kova-datamodel PRIVATE ${sources})
endforeach()

target_include_directories(kova-datamodel PUBLIC core handlers)
target_link_libraries(kova-datamodel PRIVATE platform-headers)
target_compile_options(kova-datamodel PRIVATE -fno-exceptions -fno-rtti -fno-threadsafe-statics
                                              -fno-asynchronous-unwind-tables
                                              -U_GLIBCXX_ASSERTIONS -D_GLIBCXX_NO_ASSERTIONS)
# Linked as C: when loaded it needs libc and nothing else. What it takes from the platform libraries stays undefined
# until the agent's process, which has them, loads it.
set_target_properties(kova-datamodel PROPERTIES LINKER_LANGUAGE C CXX_VISIBILITY_PRESET hidden
                                                VISIBILITY_INLINES_HIDDEN ON)
target_link_options(kova-datamodel PRIVATE -Wl,--as-needed -Wl,-z,relro,-z,now)

# The plug-in: every source of a folder logs under the folder's module name.

set(KOVA_MODULES core=pkg-tool handlers/pkg-mgmt=pkg-mgmt handlers/pkg-dev=pkg-dev handlers/pkg-lan=pkg-lan
    handlers/pkg-wan=pkg-wan handlers/pkg-diag=pkg-diag handlers/pkg-mobile=pkg-mobile handlers/pkg-br=pkg-br
    handlers/pkg-wl=pkg-wl)

# kova_add_plugin(TARGET OPTIONS...): the plug-in, with further compile options.
function(kova_add_plugin target)
  add_library(${target} SHARED)
  foreach(entry IN LISTS KOVA_MODULES)
    string(REPLACE "=" ";" entry ${entry})
    list(GET entry 0 folder)
    list(GET entry 1 module)
    file(GLOB sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/${folder}/*.cpp)
    set_source_files_properties(${sources} PROPERTIES COMPILE_DEFINITIONS KOVA_MODULE="${module}.c")
    target_sources(${target} PRIVATE ${sources})
  endforeach()
  target_include_directories(${target} PUBLIC ${PROJECT_SOURCE_DIR}/core ${PROJECT_SOURCE_DIR}/handlers)
  target_link_libraries(${target} PRIVATE platform-headers)
  target_compile_definitions(${target} PRIVATE KOVA_BUILDING_PLUGIN KOVA_VERSION="${PROJECT_VERSION}")
  target_compile_options(${target} PRIVATE -fno-exceptions -fno-rtti -fno-threadsafe-statics
                                           -fno-asynchronous-unwind-tables -fno-unwind-tables
                                           -U_GLIBCXX_ASSERTIONS -D_GLIBCXX_NO_ASSERTIONS ${ARGN})
  # Nearly all files take these. (None of the plug-in's own: GCC would want the module's name to be the same for all.)
  target_precompile_headers(${target} PRIVATE <stdio.h> <string.h> <span> <string_view> <uci.h>)
  # Linked as C: when loaded it needs libc and nothing else. What it takes from the platform libraries stays undefined
  # until the agent's process, which has them, loads it.
  set_target_properties(${target} PROPERTIES LINKER_LANGUAGE C CXX_VISIBILITY_PRESET hidden
                                             VISIBILITY_INLINES_HIDDEN ON)
  # No router has larger pages than 16 KiB. By themselves, linkers for Arm and MIPS leave room for 64.
  target_link_options(${target} PRIVATE -Wl,--as-needed -Wl,-z,relro,-z,now,-z,max-page-size=16384)
endfunction()

kova_add_plugin(kova-datamodel)

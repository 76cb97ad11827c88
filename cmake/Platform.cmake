# The router's own libraries: libuci, libubox and libubus. The plug-in is compiled against their headers and leaves their
# symbols to the process that loads it; processes (kovadm, tests) link them.

set(KOVA_PLATFORM auto CACHE STRING "Platform libraries: auto, system or standin")
set_property(CACHE KOVA_PLATFORM PROPERTY STRINGS auto system standin)

add_library(platform-headers INTERFACE)
add_library(platform-libraries INTERFACE)
target_link_libraries(platform-libraries INTERFACE platform-headers)

set(KOVA_PLATFORM_PREFIX "" CACHE PATH "Where they are installed, beside the system's places")
set(in_prefix HINTS "${KOVA_PLATFORM_PREFIX}")
find_path(KOVA_UCI_INCLUDE uci.h ${in_prefix} PATH_SUFFIXES include)
find_path(KOVA_UBOX_INCLUDE libubox/blobmsg.h ${in_prefix} PATH_SUFFIXES include)
find_path(KOVA_UBUS_INCLUDE libubus.h ${in_prefix} PATH_SUFFIXES include)
find_library(KOVA_UCI_LIBRARY uci ${in_prefix} PATH_SUFFIXES lib)
find_library(KOVA_UBOX_LIBRARY ubox ${in_prefix} PATH_SUFFIXES lib)
find_library(KOVA_UBUS_LIBRARY ubus ${in_prefix} PATH_SUFFIXES lib)
if(KOVA_UCI_INCLUDE AND KOVA_UBOX_INCLUDE AND KOVA_UBUS_INCLUDE AND KOVA_UCI_LIBRARY AND KOVA_UBOX_LIBRARY
   AND KOVA_UBUS_LIBRARY)
  set(system_platform TRUE)
endif()

if(KOVA_PLATFORM STREQUAL "system" AND NOT system_platform)
  message(FATAL_ERROR "KOVA_PLATFORM=system: libuci, libubox and libubus are not all installed with their headers; "
                      "KOVA_PLATFORM_PREFIX says where")
elseif(NOT KOVA_PLATFORM MATCHES "^(auto|system|standin)$")
  message(FATAL_ERROR "KOVA_PLATFORM is auto, system or standin, not ${KOVA_PLATFORM}")
endif()

if(system_platform AND NOT KOVA_PLATFORM STREQUAL "standin")
  message(STATUS "Platform libraries: the system's")
  target_include_directories(platform-headers SYSTEM INTERFACE ${KOVA_UCI_INCLUDE} ${KOVA_UBOX_INCLUDE}
                                                               ${KOVA_UBUS_INCLUDE})
  set(platform ${KOVA_UCI_LIBRARY} ${KOVA_UBUS_LIBRARY} ${KOVA_UBOX_LIBRARY})
  include(${CMAKE_CURRENT_LIST_DIR}/PlatformTools.cmake)
else()
  set(KOVA_STANDINS TRUE)
  message(STATUS "Platform libraries: stand-ins, for development only")
  # They read JSON with a header-only library, which serves cross builds too.
  find_path(KOVA_JSON_INCLUDE nlohmann/json.hpp HINTS /usr/include NO_CMAKE_FIND_ROOT_PATH REQUIRED)
  add_subdirectory(${CMAKE_CURRENT_LIST_DIR}/../lab/platform lab/platform)
  foreach(library uci ubox ubus)
    target_include_directories(platform-headers SYSTEM
                               INTERFACE $<TARGET_PROPERTY:${library},INTERFACE_INCLUDE_DIRECTORIES>)
  endforeach()
  set(platform uci ubus ubox)
endif()
# Needed by the plug-in that the process loads, even where the process itself uses none of them.
target_link_libraries(platform-libraries INTERFACE -Wl,--push-state,--no-as-needed ${platform} -Wl,--pop-state)

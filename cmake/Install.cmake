# What goes onto a router or a workstation: cmake --install BUILD --prefix PREFIX. Components: plugin, agent, development.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)
set(KOVA_ZSH_COMPLETIONS share/zsh/site-functions CACHE STRING "Where zsh looks for completion, below the prefix")
set(include_directory ${CMAKE_INSTALL_INCLUDEDIR}/kova-datamodel)

# In lib/ itself, where agents look for it, whatever the system's directory for libraries is.
set_target_properties(kova-datamodel PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
install(TARGETS kova-datamodel LIBRARY DESTINATION lib COMPONENT plugin)

install(FILES core/pkg-tool.h DESTINATION ${include_directory} COMPONENT development)
install(DIRECTORY handlers/ DESTINATION ${include_directory} COMPONENT development FILES_MATCHING PATTERN "*.h")

set(package_directory lib/cmake/kova-datamodel)
configure_package_config_file(cmake/kova-datamodel-config.cmake.in kova-datamodel-config.cmake
                              INSTALL_DESTINATION ${package_directory} PATH_VARS include_directory)
write_basic_package_version_file(kova-datamodel-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kova-datamodel-config.cmake
              ${PROJECT_BINARY_DIR}/kova-datamodel-config-version.cmake
        DESTINATION ${package_directory} COMPONENT development)
configure_file(cmake/kova-datamodel.pc.in kova-datamodel.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kova-datamodel.pc DESTINATION lib/pkgconfig COMPONENT development)

if(KOVA_AGENT)
  install(TARGETS kovadm RUNTIME COMPONENT agent)
  install(FILES agent/commands/shell/kovadm.bash DESTINATION share/bash-completion/completions RENAME kovadm COMPONENT agent)
  install(FILES agent/commands/shell/_kovadm DESTINATION ${KOVA_ZSH_COMPLETIONS} COMPONENT agent)
  configure_file(agent/kovadm.1.in kovadm.1 @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/kovadm.1 DESTINATION share/man/man1 COMPONENT agent)
  if(KOVA_STANDINS)
    # They are nobody else's, so they stay out of the system's sight.
    install(TARGETS uci ubox ubus LIBRARY DESTINATION lib/kova-datamodel COMPONENT agent)
    set_target_properties(ubus PROPERTIES INSTALL_RPATH "$ORIGIN")
    # The absolute one is for a system without /proc, where a program does not know its place.
    set_target_properties(
      kovadm PROPERTIES INSTALL_RPATH "$ORIGIN/../lib/kova-datamodel;${CMAKE_INSTALL_PREFIX}/lib/kova-datamodel")
  elseif(KOVA_PLATFORM_PREFIX)
    set_target_properties(kovadm PROPERTIES INSTALL_RPATH "${KOVA_PLATFORM_PREFIX}/lib")
  endif()
endif()

# A Debian package for workstations: scripts/package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_CONTACT "Kova data model maintainers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "TR-069 data-model plug-in for routers, and kovadm, its command-line agent")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/lab/lib)
set(CPACK_STRIP_FILES ON)
include(CPack)

# Installs the CMake package and the pkg-config file of one library of this project.
function(datachunk_install_package name pcName)
  set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/${name})
  set(templates ${PROJECT_SOURCE_DIR}/cmake)
  configure_package_config_file(${templates}/${name}Config.cmake.in ${name}Config.cmake
                                INSTALL_DESTINATION ${packageDir})
  write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake
                                   VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
  configure_file(${templates}/${pcName}.pc.in ${pcName}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${name}Config.cmake
                ${CMAKE_CURRENT_BINARY_DIR}/${name}ConfigVersion.cmake
          DESTINATION ${packageDir})
  install(EXPORT ${name}Targets NAMESPACE ${name}:: DESTINATION ${packageDir})
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${pcName}.pc
          DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

# What the two shared libraries have in common. Those for Qt 6 end in DATACHUNK_SUFFIX: the file, the
# CMake package and its target; DATACHUNK_FILE_SUFFIX ends the names of folders and files.

# Names a library, and exports only the symbols that its list "<name>.map" holds.
function(datachunk_library name)
  set(fullName ${name}${DATACHUNK_SUFFIX})
  add_library(${fullName}::${fullName} ALIAS ${name})
  set_target_properties(${name} PROPERTIES
    OUTPUT_NAME ${fullName} EXPORT_NAME ${fullName}
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  string(TOLOWER ${name} fileName)
  set(list ${CMAKE_CURRENT_SOURCE_DIR}/${fileName}.map)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
  file(READ ${list} symbols)
  if(DATACHUNK_QT EQUAL 6)
    # Other names of Qt 5 for the same types.
    string(REPLACE "QVector<" "QList<" symbols "${symbols}")
    string(REPLACE "QStringList" "QList<QString>" symbols "${symbols}")
  endif()
  set(script ${CMAKE_CURRENT_BINARY_DIR}/${fileName}.map)
  file(CONFIGURE OUTPUT ${script} CONTENT "${symbols}" @ONLY)
  target_link_options(${name} PRIVATE -Wl,--version-script=${script})
  set_property(TARGET ${name} APPEND PROPERTY LINK_DEPENDS ${script})
endfunction()

# Installs a library, its headers, its CMake package and its pkg-config file.
function(datachunk_install_library name)
  set(fullName ${name}${DATACHUNK_SUFFIX})
  string(TOLOWER ${name} fileName)
  install(TARGETS ${name} EXPORT ${fullName}Targets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          COMPONENT libraries NAMELINK_COMPONENT development)
  install(FILES ${ARGN} COMPONENT development
          DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${fileName}${DATACHUNK_FILE_SUFFIX})
  set(packageDir ${CMAKE_INSTALL_LIBDIR}/cmake/${fullName})
  set(templates ${PROJECT_SOURCE_DIR}/cmake)
  configure_package_config_file(${templates}/${name}Config.cmake.in ${fullName}Config.cmake
                                INSTALL_DESTINATION ${packageDir})
  write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/${fullName}ConfigVersion.cmake
                                   VERSION ${PROJECT_VERSION} COMPATIBILITY SameMajorVersion)
  set(pcFile ${CMAKE_CURRENT_BINARY_DIR}/${fileName}${DATACHUNK_FILE_SUFFIX}.pc)
  configure_file(${templates}/${fileName}.pc.in ${pcFile} @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${fullName}Config.cmake
                ${CMAKE_CURRENT_BINARY_DIR}/${fullName}ConfigVersion.cmake
          DESTINATION ${packageDir} COMPONENT development)
  install(EXPORT ${fullName}Targets NAMESPACE ${fullName}::
          DESTINATION ${packageDir} COMPONENT development)
  install(FILES ${pcFile} DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endfunction()

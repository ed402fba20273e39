# Debian packages of what is installed: the libraries, what is needed to build against them, and the
# programs. scripts/package.sh makes and tests them.

set(CPACK_GENERATOR DEB)
set(CPACK_COMPONENTS_ALL libraries development program monitor)
if(TARGET pythonmodule)
  list(APPEND CPACK_COMPONENTS_ALL python)
endif()
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_STRIP_FILES ON)
# Umasks differ, and folders of packages must not.
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PACKAGE_CONTACT "The datachunk developers <${DATACHUNK_CONTACT}>")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    ${PROJECT_BINARY_DIR}/src ${PROJECT_BINARY_DIR}/src/framekit)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
set(version ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})

set(CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME libdatachunkhandler${PROJECT_VERSION_MAJOR})
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARIES_DESCRIPTION "Takes every CAN and CAN FD message that a program receives, keeps a bounded
number in memory, moves full buffers into chunk files and pages old chunks
back. Imports the traces of other CAN tools.
.
This package has the shared libraries.")
set(CPACK_DEBIAN_LIBRARIES_PACKAGE_CONTROL_EXTRA ${PROJECT_SOURCE_DIR}/packaging/triggers)

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libdatachunkhandler-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME} (= ${version}), qtbase5-dev (>= 5.15)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "Takes every CAN and CAN FD message that a program receives, keeps a bounded
number in memory, moves full buffers into chunk files and pages old chunks
back. Imports the traces of other CAN tools.
.
This package has the headers, the CMake packages and the pkg-config files.")

set(CPACK_DEBIAN_PROGRAM_PACKAGE_NAME datachunk)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PROGRAM_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME} (= ${version})")
# Those of "record --plugin".
set(CPACK_DEBIAN_PROGRAM_PACKAGE_RECOMMENDS libqt5serialbus5-plugins)
set(CPACK_DEBIAN_PROGRAM_DESCRIPTION "Detects, prints, filters, imports and exports the traces of many CAN tools,
records from a CAN bus for days, and packs whole recordings into archives.")

set(CPACK_DEBIAN_MONITOR_PACKAGE_NAME datachunk-monitor)
set(CPACK_DEBIAN_MONITOR_PACKAGE_SECTION electronics)
# The icon is drawn by a plug-in of libqt5svg5.
set(CPACK_DEBIAN_MONITOR_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME} (= ${version}), libqt5svg5")
set(CPACK_DEBIAN_MONITOR_PACKAGE_RECOMMENDS "libqt5serialbus5-plugins, qttranslations5-l10n")
set(CPACK_DEBIAN_MONITOR_DESCRIPTION "Shows the messages of CAN buses as they come, records them for days, and opens
recordings of any length and the traces of many CAN tools in one table, with
filters, notes and statistics.")

set(CPACK_DEBIAN_PYTHON_PACKAGE_NAME python3-datachunk)
set(CPACK_DEBIAN_PYTHON_PACKAGE_SECTION python)
set(CPACK_DEBIAN_PYTHON_PACKAGE_DEPENDS
    "${CPACK_DEBIAN_LIBRARIES_PACKAGE_NAME} (= ${version}), ${DATACHUNK_PYTHON_VERSIONS}, python3-numpy")
set(CPACK_DEBIAN_PYTHON_PACKAGE_RECOMMENDS python3-pandas)
# Root's interpreter would leave compiled modules behind that no package owns.
set(CPACK_DEBIAN_PYTHON_PACKAGE_CONTROL_EXTRA
    ${PROJECT_SOURCE_DIR}/packaging/python/postinst ${PROJECT_SOURCE_DIR}/packaging/python/prerm)
set(CPACK_DEBIAN_PYTHON_DESCRIPTION "Reads the traces of many CAN tools, and recordings of any length, into NumPy
arrays and pandas data frames, filters them, and writes chunk and Parquet
files.
.
This package has the Python module.")

# What Debian wants in each package.
set(changelog ${PROJECT_SOURCE_DIR}/packaging/changelog.Debian)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${changelog})
execute_process(COMMAND gzip -9 --no-name --stdout ${changelog}
                OUTPUT_FILE ${PROJECT_BINARY_DIR}/changelog.Debian.gz COMMAND_ERROR_IS_FATAL ANY)
foreach(component IN LISTS CPACK_COMPONENTS_ALL)
  string(TOUPPER ${component} upper)
  set(package ${CPACK_DEBIAN_${upper}_PACKAGE_NAME})
  install(FILES packaging/copyright ${PROJECT_BINARY_DIR}/changelog.Debian.gz
          DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component})
  if(EXISTS ${PROJECT_SOURCE_DIR}/packaging/${component}.lintian-overrides)
    install(FILES packaging/${component}.lintian-overrides RENAME ${package}
            DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides COMPONENT ${component})
  endif()
endforeach()

include(CPack)

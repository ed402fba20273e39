# Installs into a temporary prefix and builds what README.md shows against it, once through the
# CMake package and once through pkg-config. Without BUILD against what the system has installed.
# cmake -DBUILD=<build folder> -DWORK=<scratch folder> -DGENERATOR=Ninja -DLIBDIR=lib...
#       -DSUFFIX=<end of the libraries' names> -DFILE_SUFFIX=<end of their files' names>
#       -DFLAGS=... -P installtest.cmake

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT status EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "${command}\n${out}")
  endif()
endfunction()

# Writes the one example in a language to a file.
function(extract language file)
  file(READ ${CMAKE_CURRENT_LIST_DIR}/../../README.md text)
  string(FIND "${text}" "\n```${language}\n" start)
  string(SUBSTRING "${text}" ${start} -1 text)
  string(REGEX REPLACE "^\n```${language}\n" "" text "${text}")
  string(FIND "${text}" "\n```\n" end)
  string(SUBSTRING "${text}" 0 ${end} text)
  file(WRITE ${file} "${text}\n")
endfunction()

function(run_example program)
  execute_process(COMMAND ${program} RESULT_VARIABLE status ERROR_VARIABLE out)
  if(NOT status EQUAL 0 OR NOT out MATCHES "chunk 0 holds \"0.000000 - 0.000000\"")
    message(FATAL_ERROR "${program}: ${status}\n${out}")
  endif()
endfunction()

# Moving the prefix shows that nothing in it holds on to where it was installed.
file(REMOVE_RECURSE ${WORK})
set(prefix /usr)
if(BUILD)
  run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
  file(RENAME ${WORK}/first ${WORK}/moved)
  set(prefix ${WORK}/moved)
endif()
set(ENV{XDG_DATA_HOME} ${WORK}/data)
set(ENV{LC_ALL} C.UTF-8)
set(source ${WORK}/example)
extract(cmake ${source}/CMakeLists.txt)
extract(cpp ${source}/main.cpp)
file(READ ${source}/CMakeLists.txt example)
string(REPLACE "DatachunkHandler" "DatachunkHandler${SUFFIX}" example "${example}")
file(WRITE ${source}/CMakeLists.txt "${example}")

run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${source} -B ${WORK}/cmake -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/cmake)
run_example(${WORK}/cmake/monitor)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs datachunkhandler${FILE_SUFFIX}
                OUTPUT_VARIABLE pkgFlags OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
# The shell's rules, in which a blank in a path is escaped.
separate_arguments(pkgFlags UNIX_COMMAND "${pkgFlags}")
separate_arguments(FLAGS UNIX_COMMAND "${FLAGS}")
run(c++ -std=c++17 ${FLAGS} ${source}/main.cpp -o ${WORK}/pkgconsumer ${pkgFlags}
    -Wl,-rpath,${prefix}/${LIBDIR})
run_example(${WORK}/pkgconsumer)

foreach(library libFrameKit${SUFFIX}.so.1 libDatachunkHandler${SUFFIX}.so.1)
  if(NOT EXISTS ${prefix}/${LIBDIR}/${library})
    message(FATAL_ERROR "${library} is not installed")
  endif()
endforeach()

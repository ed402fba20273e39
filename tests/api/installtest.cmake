# Installs into a temporary prefix and builds the consumer against it, once through the CMake
# package and once through pkg-config.
# cmake -DBUILD=<build folder> -DWORK=<scratch folder> -DGENERATOR=Ninja -DLIBDIR=lib...
#       -DFLAGS=... -P installtest.cmake

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT status EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "${command}\n${out}")
  endif()
endfunction()

set(source ${CMAKE_CURRENT_LIST_DIR}/consumer)
# Moving the prefix shows that nothing in it holds on to where it was installed.
file(REMOVE_RECURSE ${WORK})
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/first)
file(RENAME ${WORK}/first ${WORK}/moved)
set(prefix ${WORK}/moved)
set(ENV{XDG_DATA_HOME} ${WORK}/data)

run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${source} -B ${WORK}/cmake -DCMAKE_PREFIX_PATH=${prefix}
    -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${WORK}/cmake)
run(${WORK}/cmake/consumer)

set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
execute_process(COMMAND pkg-config --cflags --libs datachunkhandler
                OUTPUT_VARIABLE pkgFlags OUTPUT_STRIP_TRAILING_WHITESPACE
                COMMAND_ERROR_IS_FATAL ANY)
separate_arguments(pkgFlags)
separate_arguments(FLAGS)
run(c++ -std=c++17 ${FLAGS} ${source}/main.cpp -o ${WORK}/pkgconsumer ${pkgFlags}
    -Wl,-rpath,${prefix}/${LIBDIR})
run(${WORK}/pkgconsumer)

# Only what the headers export is visible.
foreach(library libFrameKit.so.1 libDatachunkHandler.so.1)
  if(NOT EXISTS ${prefix}/${LIBDIR}/${library})
    message(FATAL_ERROR "${library} is not installed")
  endif()
endforeach()
execute_process(COMMAND nm -DC --defined-only ${prefix}/${LIBDIR}/libDatachunkHandler.so.1
                OUTPUT_VARIABLE symbols COMMAND_ERROR_IS_FATAL ANY)
if(symbols MATCHES "(DatachunkHandlerPrivate|MessageList|ChunkFormat)::")
  message(FATAL_ERROR "inner functions are visible: ${CMAKE_MATCH_0}")
endif()

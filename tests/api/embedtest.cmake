# Installs into a temporary prefix, builds examples/embed against it, and has it record more messages
# than it keeps in memory and show the first of them.
# cmake -DBUILD=<build folder> -DWORK=<scratch folder> -DGENERATOR=Ninja
#       -DFLAGS=... -DPLUGINS=<folder with canbus/libtestcan.so> -P embedtest.cmake

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE out)
  if(NOT status EQUAL 0)
    string(REPLACE ";" " " command "${ARGN}")
    message(FATAL_ERROR "${command}\n${out}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${WORK})
set(ENV{XDG_DATA_HOME} ${WORK}/data)
set(ENV{LC_ALL} C.UTF-8)
set(ENV{QT_QPA_PLATFORM} offscreen)
set(ENV{QT_PLUGIN_PATH} ${PLUGINS})
# Qt never deletes the screen of a platform without one.
file(WRITE ${WORK}/leaks "leak:libqoffscreen.so\n")
set(ENV{LSAN_OPTIONS} suppressions=${WORK}/leaks)
run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/prefix)
run(${CMAKE_COMMAND} -G ${GENERATOR} -S ${CMAKE_CURRENT_LIST_DIR}/../../examples/embed
    -B ${WORK}/build -DCMAKE_PREFIX_PATH=${WORK}/prefix "-DCMAKE_CXX_FLAGS=${FLAGS} -Wall -Wextra -Werror")
run(${CMAKE_COMMAND} --build ${WORK}/build)
run(${WORK}/build/monitor testcan flood 200000)
if(NOT output MATCHES "200000 messages, the first with \"00 00 00 00\"")
  message(FATAL_ERROR "${output}")
endif()

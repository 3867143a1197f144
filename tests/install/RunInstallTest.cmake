# Installs the build at BUILD_DIR into a scratch prefix, then configures, builds and
# runs the consumer in this folder against that prefix, so that the package, its
# headers and its link dependencies are tried as a host outside the tree meets them.
#   cmake -DBUILD_DIR=... -DWORK_DIR=... -DCXX=... [-DSANITIZE_FLAGS=...] -P RunInstallTest.cmake
file(REMOVE_RECURSE ${WORK_DIR})

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT result EQUAL 0)
    message(FATAL_ERROR "failed: ${ARGN}\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${WORK_DIR}/prefix)
run(${CMAKE_COMMAND} -S ${CMAKE_CURRENT_LIST_DIR} -B ${WORK_DIR}/build
    -DCMAKE_PREFIX_PATH=${WORK_DIR}/prefix -DCMAKE_CXX_COMPILER=${CXX}
    "-DCMAKE_EXE_LINKER_FLAGS=${SANITIZE_FLAGS}")
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/app)
file(REMOVE_RECURSE ${WORK_DIR})

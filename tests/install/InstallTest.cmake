# Installs the build into a fresh prefix, then builds a host program against what was installed in
# both ways a host would (find_package(Brenvale), and pkg-config) and runs each on a new company file
# through the company engine.
#   -DBUILD_DIR=<the build>  -DHOST_DIR=<the host's sources>  -DCXX=<compiler>  -DFLAGS=<compile flags>
#   -DGENERATOR=<CMake generator>  -DLIBDIR=<the libraries' folder under the prefix>
cmake_minimum_required(VERSION 3.20)
set(work ${BUILD_DIR}/install-test)
set(prefix ${work}/prefix)
file(REMOVE_RECURSE ${work})
file(MAKE_DIRECTORY ${work})

function(run what)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${what} failed (${status}):\n${out}\n${err}")
  endif()
  set(output "${out}" PARENT_SCOPE)
endfunction()

# The host prints the tree's top account and the sum of its balance and its sub-account's.
function(check_host what program)
  run("${what}: running the host" ${program} ${work}/${what}.qbw)
  if(NOT output STREQUAL "Operating 125.00\n")
    message(FATAL_ERROR "${what}: the host printed '${output}', not 'Operating 125.00'")
  endif()
  message(STATUS "${what}: ${output}")
endfunction()

run("installing" ${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
foreach(installed include/brenvale/Brenvale.hpp include/brenvale/lists/Account.hpp
                  include/brenvale/rqp/CompanyEngine.hpp ${LIBDIR}/libbrenvale_core.a ${LIBDIR}/libbrenvale_rqp.a
                  ${LIBDIR}/libbrenvale_webconnector.a ${LIBDIR}/cmake/Brenvale/BrenvaleConfig.cmake
                  ${LIBDIR}/pkgconfig/brenvale.pc bin/brenvale)
  if(NOT EXISTS ${prefix}/${installed})
    message(FATAL_ERROR "cmake --install put no ${installed} under the prefix")
  endif()
endforeach()

# find_package(Brenvale)
run("configuring the CMake host" ${CMAKE_COMMAND} -S ${HOST_DIR} -B ${work}/cmake-host -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_CXX_COMPILER=${CXX} "-DCMAKE_CXX_FLAGS=${FLAGS}"
    -DCMAKE_BUILD_TYPE=Release)
run("building the CMake host" ${CMAKE_COMMAND} --build ${work}/cmake-host)
check_host(find_package ${work}/cmake-host/host)

# pkg-config
find_program(PKG_CONFIG NAMES pkgconf pkg-config REQUIRED)
run("asking pkg-config" ${CMAKE_COMMAND} -E env PKG_CONFIG_PATH=${prefix}/${LIBDIR}/pkgconfig
    ${PKG_CONFIG} --cflags --libs brenvale brenvale-rqp)
string(STRIP "${output}" pc_flags)
separate_arguments(pc_flags UNIX_COMMAND "${pc_flags}")
separate_arguments(flags UNIX_COMMAND "${FLAGS}")
run("building the pkg-config host" ${CXX} -std=c++20 ${flags} ${HOST_DIR}/host.cpp ${pc_flags} -o ${work}/pc-host)
check_host(pkg-config ${work}/pc-host)

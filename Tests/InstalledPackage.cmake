# Installs the build into a folder of its own, builds the example host against that alone, and runs it
# without a tablet: it must start, find no such port, and say so.
set(prefix ${BUILD}/installed-package)
file(REMOVE_RECURSE ${prefix})

function(run)
  execute_process(COMMAND ${ARGV} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGV}\n${output}")
  endif()
endfunction()

run(${CMAKE_COMMAND} --install ${BUILD} --prefix ${prefix}/root)
run(${CMAKE_COMMAND} -S ${SOURCE}/Examples/host -B ${prefix}/host -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix}/root -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${prefix}/host)

# Every installed header, in a host that keeps "signals" for itself and is itself older C++.
file(GLOB_RECURSE headers RELATIVE ${prefix}/root/include/DigitizerGeneric
     ${prefix}/root/include/DigitizerGeneric/*.h)
list(TRANSFORM headers REPLACE "(.+)" "#include \"\\1\"" OUTPUT_VARIABLE includes)
list(JOIN includes "\n" includes)
file(WRITE ${prefix}/headers/headers.cpp "${includes}\nint signals, slots, emit;
static_assert(__cplusplus >= 201703L, \"the library asks for C++17\");\n")
file(WRITE ${prefix}/headers/CMakeLists.txt [[
cmake_minimum_required(VERSION 3.18)
project(Headers CXX)
find_package(DigitizerGeneric 1.0 REQUIRED)
set(CMAKE_CXX_STANDARD 14)
add_library(headers STATIC headers.cpp)
target_compile_definitions(headers PRIVATE QT_NO_KEYWORDS)
target_link_libraries(headers PRIVATE MavSystem::DigitizerGeneric)
]])
run(${CMAKE_COMMAND} -S ${prefix}/headers -B ${prefix}/headers/build -G ${GENERATOR}
    -DCMAKE_PREFIX_PATH=${prefix}/root -DCMAKE_CXX_FLAGS=${FLAGS})
run(${CMAKE_COMMAND} --build ${prefix}/headers/build)

execute_process(COMMAND ${CMAKE_COMMAND} -E env HOME=${prefix} ${prefix}/host/example-host "no such driver" /no/such/port
                RESULT_VARIABLE status ERROR_VARIABLE errors)
if(NOT status EQUAL 1 OR NOT errors MATCHES "Cannot open digitizer, please check the connection.")
  message(FATAL_ERROR "the example host ended with '${status}' and said: ${errors}")
endif()
if(NOT EXISTS ${prefix}/root/share/DigitizerGeneric/Plugins/digitizer/generated/generic-5-5-1.xml)
  message(FATAL_ERROR "the shipped descriptions are not installed")
endif()
foreach(program digitizer tablet-simulator)
  set(page ${prefix}/root/share/man/man1/${program}.1)
  if(NOT EXISTS ${page})
    message(FATAL_ERROR "the manual page of ${program} is not installed")
  endif()
  file(READ ${page} text LIMIT 100)
  if(NOT text MATCHES "^.TH ")
    message(FATAL_ERROR "${page} is not a manual page: ${text}")
  endif()
endforeach()

# Installs the library into an empty folder, builds a small project against it and runs its program.

function(run)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE output)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${ARGN}\n${output}")
  endif()
  set(output "${output}" PARENT_SCOPE)
endfunction()

file(REMOVE_RECURSE ${folder})
run(${CMAKE_COMMAND} --install ${build} --prefix ${folder}/prefix --config ${config})

set(arguments -DCMAKE_PREFIX_PATH=${folder}/prefix -DCMAKE_FIND_ROOT_PATH=${folder}/prefix -Dwanted_version=${version}
  -DCMAKE_BUILD_TYPE=${config} "-DCMAKE_CXX_FLAGS=${flags}")
if(toolchain)
  list(APPEND arguments -DCMAKE_TOOLCHAIN_FILE=${toolchain})
else()
  list(APPEND arguments -DCMAKE_CXX_COMPILER=${compiler})
endif()
run(${CMAKE_COMMAND} -G Ninja -S ${source}/tests/consumer -B ${folder}/build ${arguments})
run(${CMAKE_COMMAND} --build ${folder}/build)

find_program(hello NAMES hello hello.exe PATHS ${folder}/build NO_DEFAULT_PATH REQUIRED NO_CACHE)
run(${emulator} ${hello})
if(NOT output MATCHES "Message : models\\\\part.obj is not here")
  message(FATAL_ERROR "the program printed:\n${output}")
endif()

file(GLOB crossings ${folder}/build/crossing ${folder}/build/crossing-fixed ${folder}/build/crossing.exe)
foreach(program ${crossings})
  run(${emulator} ${program})
endforeach()

# The README shows this very program.
file(READ ${source}/README.md readme)
file(READ ${source}/tests/consumer/hello.cpp program)
string(FIND "${readme}" "${program}" position)
if(position EQUAL -1)
  message(FATAL_ERROR "README.md does not show tests/consumer/hello.cpp as it stands")
endif()

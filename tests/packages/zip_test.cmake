# Makes the zip, unpacks it and runs its program with nothing but what is beside it.

file(REMOVE_RECURSE ${folder})
execute_process(COMMAND ${CMAKE_CPACK_COMMAND} --config ${build}/CPackConfig.cmake -G ZIP -C ${config} -B ${folder}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB zip ${folder}/kova-*-win32.zip)
set(place "${folder}/a place of its own")
file(ARCHIVE_EXTRACT INPUT ${zip} DESTINATION ${place})

file(GLOB program ${place}/*/bin/kova-translate.exe)
file(COPY ${model} DESTINATION ${place})
cmake_path(GET model FILENAME name)
execute_process(COMMAND ${CMAKE_COMMAND} -E env KOVA_WINE_PATH= ${emulator} ${program} --level BRIEF ${name} model.obj
  WORKING_DIRECTORY ${place} OUTPUT_VARIABLE output ERROR_VARIABLE output RESULT_VARIABLE status)
if(NOT status EQUAL 0 OR NOT output MATCHES "model.obj: OBJ, 4512 faces")
  message(FATAL_ERROR "status ${status}\n${output}")
endif()
file(GLOB header ${place}/*/include/kova/kova.h)
file(GLOB document ${place}/*/share/doc/kova/README.md)
if(NOT header OR NOT document)
  message(FATAL_ERROR "headers or documents are missing in ${zip}")
endif()

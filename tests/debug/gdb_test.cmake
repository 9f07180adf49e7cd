# gdb shows a program's objects as the golden text says: with the library in the build folder, which gdb is told
# to trust, and with an installed copy, where gdb is told nothing and only made to look for its data below the
# same prefix.

function(show expected_library)
  execute_process(COMMAND ${ARGN} -nx -batch -x ${source}/shown.gdb ${program}
    OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  string(REGEX REPLACE ".*\n== *\n" "" shown "${output}")
  string(REGEX REPLACE "\\[Inferior [^\n]*\n" "" shown "${shown}")
  file(READ ${source}/shown.txt golden)
  string(FIND "${output}" "${expected_library}" library_position)
  if(NOT shown STREQUAL golden OR library_position EQUAL -1 OR errors MATCHES "Python Exception")
    message("${output}\n${errors}")
    message(FATAL_ERROR "gdb shows other than ${source}/shown.txt, or not with the library in ${expected_library}")
  endif()
endfunction()

get_filename_component(build_folder ${library} DIRECTORY)
show(${build_folder}/ ${gdb} -iex "add-auto-load-safe-path ${build_folder}")

file(REMOVE_RECURSE ${prefix})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${build} --prefix ${prefix} --config ${config}
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${gdb} -nx -batch -ex "python print(gdb.PYTHONDIR)"
  OUTPUT_VARIABLE python OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
file(CREATE_LINK ${python} ${prefix}/share/gdb/python SYMBOLIC)
show(${prefix}/${libdir}/ ${CMAKE_COMMAND} -E env LD_LIBRARY_PATH=${prefix}/${libdir}
  ${gdb} --data-directory ${prefix}/share/gdb)

if(NOT EXISTS ${prefix}/share/kova/kova.natvis)
  message(FATAL_ERROR "kova.natvis was not installed")
endif()

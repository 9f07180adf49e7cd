# Runs the translator as a user does and checks exit status and output.

file(REMOVE_RECURSE ${folder})
file(MAKE_DIRECTORY ${folder})
file(COPY ${model} DESTINATION ${folder})

function(expect_run status out err)
  execute_process(COMMAND ${program} ${ARGN} WORKING_DIRECTORY ${folder}
    RESULT_VARIABLE actual OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  string(REPLACE "\r" "" output "${output}")
  string(REPLACE "\r" "" errors "${errors}")
  if(NOT actual STREQUAL status OR NOT output MATCHES "${out}" OR NOT errors MATCHES "${err}")
    message(FATAL_ERROR "kova-translate ${ARGN}\nstatus ${actual}, wanted ${status}\noutput:\n${output}\nerrors:\n${errors}")
  endif()
endfunction()

expect_run(0 "^flanged-bearing.stl: binary STL, 4512 triangles, 2246 vertices\n.*bearing.obj: OBJ, 4512 faces" "^$"
  flanged-bearing.stl bearing.obj)
file(STRINGS ${folder}/bearing.obj faces REGEX "^f ")
list(LENGTH faces count)
if(NOT count EQUAL 4512)
  message(FATAL_ERROR "${count} faces in bearing.obj")
endif()

expect_run(0 "^bearing.obj: OBJ, 4512 faces, 4512 triangles, 2246 vertices\n.*back.stl: ASCII STL, 4512 triangles" "^$"
  --ascii bearing.obj back.stl)
expect_run(0 "^back.stl: ASCII STL, 4512 triangles\n.*again.stl: binary STL, 4512 triangles, 225684 bytes\n" "^$"
  back.stl again.stl)

expect_run(13 "^$" "^Error : none.stl: cannot be opened: No such file or directory\n$" none.stl none.obj)
expect_run(11 "^$" "^Error : two file names are wanted\nusage: " flanged-bearing.stl)
expect_run(11 "^$" "^Error : --x%s: no such option\nusage: " flanged-bearing.stl --x%s out.obj)
expect_run(0 "^usage: kova-translate INPUT OUTPUT " "^$" --help)
expect_run(0 "^kova-translate [0-9]+\\.[0-9]+\\.[0-9]+\n$" "^$" --version)

# Runs the translator as a user does and checks exit status and output.

file(REMOVE_RECURSE ${folder})
file(MAKE_DIRECTORY ${folder})
file(COPY ${model} DESTINATION ${folder})
file(WRITE ${folder}/flat.obj "# Flat by intent\nv 0 0 0\nv 1 0 0\nf 1 2 2\n")

function(expect_run status out err)
  execute_process(COMMAND ${program} ${ARGN} WORKING_DIRECTORY ${folder}
    RESULT_VARIABLE actual OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  string(REPLACE "\r" "" output "${output}")
  string(REPLACE "\r" "" errors "${errors}")
  if(NOT actual STREQUAL status OR NOT output MATCHES "${out}" OR NOT errors MATCHES "${err}")
    message(FATAL_ERROR "kova-translate ${ARGN}\nstatus ${actual}, wanted ${status}\noutput:\n${output}\nerrors:\n${errors}")
  endif()
endfunction()

expect_run(0 "^flanged-bearing.stl: binary STL, 4512 triangles, 2246 vertices
flanged-bearing.stl: bounding box \\(-60, -40, 0\\) to \\(60, 40, 46\\)
flanged-bearing.stl: surface area 34555.4, volume 147993, unit unknown
bearing.obj: OBJ, 4512 faces, 2246 vertices, 124210 bytes\n$" "^$"
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
expect_run(0 "^usage: kova-translate INPUT OUTPUT .*--show-options .*KOVA/XMesh/.*by Ctrl-C.\n$" "^$" --help)
expect_run(0 "^kova-translate [0-9]+\\.[0-9]+\\.[0-9]+\n$" "^$" --version)

# Reports: console and log at the same level say the same, machines hear of a failure.
function(expect_golden name text)
  string(REPLACE "\r" "" text "${text}")
  string(REGEX REPLACE "[0-9]+-[0-9]+-[0-9]+[ T][0-9:.]+" "#" text "${text}")
  string(REGEX REPLACE "(Time = |\"duration\":|kova-translate ) *[0-9]+[.][0-9.]*[0-9]" "\\1#" text "${text}")
  file(READ ${golden}/${name} wanted)
  if(NOT text STREQUAL wanted)
    message(FATAL_ERROR "${name} should be\n${wanted}\nand is\n${text}")
  endif()
endfunction()
file(WRITE ${folder}/report.options "/XMesh/Export/Digits=3\n/XMesh/Import/Degenerate=drop\n")
execute_process(COMMAND ${program} flanged-bearing.stl report.obj --options report.options --level Info
  --set /XMesh/Import/WeldTol=0.001 --timing --log report.log WORKING_DIRECTORY ${folder} OUTPUT_VARIABLE console)
expect_golden(report.txt "${console}")
file(READ ${folder}/report.log log)
expect_golden(report.txt "${log}")
expect_run(21 "^$" "^Error : flat.obj: triangle 1 has no area\n$"
  flat.obj flat.stl --set /XMesh/Import/Degenerate=fail --log-json failure.json)
file(READ ${folder}/failure.json log)
expect_golden(failure.json "${log}")
expect_run(21 "^$" "^$" flat.obj flat.stl --set /XMesh/Import/Degenerate=fail --level None)
expect_run(11 "^$" "^Error : --level: ALL, .* or NONE should follow, not 'WARN%s'\n$" --level WARN%s)
expect_run(14 "^$" "^Error : none/x.log: cannot be created: " flat.obj x.stl --log none/x.log)
foreach(log flat.obj ./flat.obj x.stl report.options)
  expect_run(11 "^$" "^Error : ${log}: cannot be a log: " flat.obj x.stl --log-json ${log} --options report.options)
endforeach()
expect_run(11 "^$" "^Error : x.log: cannot be a log: " flat.obj x.stl --log-json x.log --log x.log)
file(READ ${folder}/flat.obj flat)
if(NOT flat MATCHES "^# Flat by intent\n")
  message(FATAL_ERROR "flat.obj was overwritten: ${flat}")
endif()

# Options.
file(WRITE ${folder}/mesh.options "# of this shop\n/xmesh/export/digits = 4\n/XMesh/Import/Degenerate: drop\n/XGeneric/SewBody=On\n")
file(WRITE ${folder}/bad.options "/XMesh/Export/Digits=3\n/XMesh/Import/WeldTool=1\n100%s\n")
set(mistakes "^Error : bad.options: unknown option '/XMesh/Import/WeldTool'; did you mean '/XMesh/Import/WeldTol'. \\(line 2\\)
Error : bad.options: NAME=VALUE should stand here \\(line 3\\)
Error : --set: '/STL/Export/Ascii' takes On or Off, not '100%s'\n$")
expect_run(0 "^/OBJ/Export/Normals       string  keep  [^\n]+
/PLY/Export/Encoding      string  little  [^\n]+
/STL/Export/Ascii         bool    Off   [^\n]+
/XMesh/Export/Digits      int     0     [^\n]+
/XMesh/Import/Degenerate  string  keep  [^\n]+
/XMesh/Import/WeldTol     double  0     [^\n]+\n$" "^$" --list-options)
expect_run(11 "^$" "${mistakes}" flanged-bearing.stl no.obj --options bad.options --set /STL/Export/Ascii=100%s)
expect_run(11 "^$" "^Error : --set: NAME=VALUE should follow\nusage: " --set)
expect_run(13 "^$" "^Error : none: cannot be opened: No such file" --show-options --options none)
if(EXISTS ${folder}/no.obj)
  message(FATAL_ERROR "no.obj was written in spite of mistakes in the options")
endif()
# An emulator may begin with an environment of its own.
list(LENGTH program words)
if(words EQUAL 1)
  set(ENV{KOVA/XMesh/Export/Digits} 3)
  set(digits "--set;/XMesh/Export/Digits=5")
  set(origin "environment variable KOVA/XMesh/Export/Digits")
  set(overridden "Warning : KOVA/XMesh/Export/Digits value overridden to 3 by environment variable\n")
else()
  set(digits "--set;/XMesh/Export/Digits=3")
  set(origin "command line")
endif()
set(shown "/OBJ/Export/Normals       keep    default
/PLY/Export/Encoding      little  default
/STL/Export/Ascii         On      command line
/XMesh/Export/Digits      3       ${origin}
/XMesh/Import/Degenerate  drop    file mesh.options, line 3
/XMesh/Import/WeldTol     0       default
")
set(warnings "^Warning : mesh.options: '/XGeneric/SewBody' has no effect here \\(line 4\\)\n${overridden}$")
expect_run(0 "^${shown}$" "${warnings}" --show-options --ascii ${digits} --options mesh.options)
expect_run(0 "^${shown}flanged-bearing.stl: .*\nflanged-bearing.stl: 0 triangles without area dropped\n" "${warnings}"
  --show-options --options mesh.options --ascii flanged-bearing.stl ${digits} rounded.stl)
file(STRINGS ${folder}/rounded.stl long REGEX "vertex.* -?[1-9][0-9]\\.[0-9][0-9]")
if(long)
  message(FATAL_ERROR "more than 3 digits in rounded.stl: ${long}")
endif()

# A library for another version of the interface is refused before any function of it is called.
unset(ENV{KOVA/XMesh/Export/Digits})
file(COPY ${bin}/ DESTINATION ${folder}/other FILES_MATCHING PATTERN "kova-translate*" PATTERN "*kova.*" PATTERN "kova_format_*")
file(COPY ${other} DESTINATION ${folder}/other)
file(WRITE ${folder}/in.xyz "0 0 0\n")
string(REGEX REPLACE "[^;]*/(kova-translate[^/]*)$" "${folder}/other/\\1" program "${program}")
set(refused "^Error : kova_format_xyz: made for version [0-9]+ of the interface to formats; this program has version [0-9]+\n$")
expect_run(9 "^$" "${refused}" in.xyz out.obj)
expect_run(9 "^$" "${refused}" flat.obj out.xyz)
expect_run(0 "^flat.obj: " "^$" flat.obj out.ply)
foreach(file out.xyz called)
  if(EXISTS ${folder}/${file})
    message(FATAL_ERROR "${file}: a function of a library of another version was called")
  endif()
endforeach()

# Runs the translator as a user does and checks exit status and output.

file(REMOVE_RECURSE ${folder})
file(MAKE_DIRECTORY ${folder})
file(COPY ${model} DESTINATION ${folder})
file(WRITE ${folder}/flat.obj "# Flat by intent\nv 0 0 0\nv 1 0 0\nf 1 2 2\n")

cmake_policy(VERSION 3.25)
list(REMOVE_ITEM program "")
list(LENGTH program words) # more than one with an emulator, for Windows
set(ENV{LC_ALL} C.UTF-8) # for an emulator that goes by it; the program itself does not

function(expect_run status out err)
  execute_process(COMMAND ${program} ${ARGN} WORKING_DIRECTORY ${folder}
    RESULT_VARIABLE actual OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  set_property(GLOBAL APPEND PROPERTY STATUSES ${actual})
  string(REPLACE "\r" "" output "${output}")
  string(REPLACE "\r" "" errors "${errors}")
  if(NOT actual STREQUAL status OR NOT output MATCHES "${out}" OR NOT errors MATCHES "${err}")
    message(FATAL_ERROR "kova-translate ${ARGN}\nstatus ${actual}, wanted ${status}\noutput:\n${output}\nerrors:\n${errors}")
  endif()
endfunction()

# What a terminal shows; without one there are errors only.
set(BRIEF --level brief)
expect_run(0 "^$" "^flanged-bearing.stl: binary STL, 4512 triangles, 2246 vertices
flanged-bearing.stl: bounding box \\(-60, -40, 0\\) to \\(60, 40, 46\\)
flanged-bearing.stl: surface area 34555.4, volume 147993, unit unknown
bearing.obj: OBJ, 4512 faces, 2246 vertices, 124210 bytes\n$"
  ${BRIEF} flanged-bearing.stl bearing.obj)
file(STRINGS ${folder}/bearing.obj faces REGEX "^f ")
list(LENGTH faces count)
if(NOT count EQUAL 4512)
  message(FATAL_ERROR "${count} faces in bearing.obj")
endif()
file(WRITE ${folder}/empty.obj "v 0 0 0\n")
expect_run(0 "^$" "^$" empty.obj empty.stl)
expect_run(0 "^$" "^$" ${BRIEF} -q empty.obj empty.stl)
expect_run(0 "^$" "^empty.obj: .*Warning : empty.obj: there is no triangle to translate\n" empty.obj empty.stl --level=Brief)
expect_run(0 "^$" "^Product .*empty.obj: OBJ.*\nProduct Completed Successfully\n$" -v empty.obj empty.stl)

expect_run(0 "^$" "^bearing.obj: OBJ, 4512 faces, 4512 triangles, 2246 vertices\n.*back.stl: ASCII STL, 4512 triangles"
  ${BRIEF} --ascii bearing.obj back.stl)
expect_run(0 "^$" "^back.stl: ASCII STL, 4512 triangles\n.*again.stl: binary STL, 4512 triangles, 225684 bytes\n"
  ${BRIEF} back.stl again.stl)

# On a terminal, which script is: colours, unless they are not wanted.
find_program(script script)
if(script AND words EQUAL 1)
  string(ASCII 27 escape)
  foreach(colours "-u NO_COLOR" NO_COLOR=1)
    execute_process(COMMAND ${script} -qec "env ${colours} TERM=xterm ${program} empty.obj empty.stl" /dev/null
      WORKING_DIRECTORY ${folder} OUTPUT_VARIABLE output)
    string(REPLACE "${escape}[" "<" output "${output}")
    set(wanted "\nempty.stl: binary STL, .*\nWarning : ")
    if(colours STREQUAL "-u NO_COLOR")
      set(wanted "\nempty.stl: binary STL, .*\n<33mWarning : ")
    endif()
    if(NOT output MATCHES "${wanted}")
      message(FATAL_ERROR "on a terminal with ${colours}:\n${output}")
    endif()
  endforeach()
endif()

function(expect_same a b)
  execute_process(COMMAND ${CMAKE_COMMAND} -E compare_files ${folder}/${a} ${folder}/${b} RESULT_VARIABLE differs)
  if(differs)
    message(FATAL_ERROR "${a} and ${b} differ")
  endif()
endfunction()

# Standard input and output carry every byte, and nothing else goes there.
execute_process(WORKING_DIRECTORY ${folder} RESULTS_VARIABLE statuses ERROR_VARIABLE errors
  COMMAND ${program} flanged-bearing.stl - --to-format ply -v
  COMMAND ${program} --from-format=.PLY - - --to-format stl
  COMMAND ${program} --from-format stl - -- piped.stl)
if(NOT statuses STREQUAL "0;0;0" OR NOT errors MATCHES "standard output: binary PLY, 4512 faces")
  message(FATAL_ERROR "pipe: ${statuses}\n${errors}")
endif()
expect_same(piped.stl again.stl)
file(WRITE ${folder}/red.mtl "newmtl red\nKd 1 0 0\n")
file(WRITE ${folder}/red.obj "mtllib red.mtl\nusemtl red\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n")
expect_run(0 "^v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n$" "Warning : standard output: materials are left out: "
  ${BRIEF} red.obj - --to-format obj)
set(unknown "not a known format; name a file that ends in .obj, .ply or .stl, or its format with")
expect_run(11 "^$" "^Error : standard output: ${unknown} --to-format\n$" flat.obj -)
expect_run(11 "^$" "^Error : flat.txt: ${unknown} --from-format\n$" flat.txt flat.obj)
expect_run(11 "^$" "^Error : --show-options: wants standard output for itself; " --show-options flat.obj -)
expect_run(11 "^$" "^Error : standard output: parts that become files .*name a file to write\n$"
  flat.obj - --to-format obj --split)

# Names in any script.
file(MAKE_DIRECTORY "${folder}/größe 模型")
expect_run(0 "^$" "^again.stl: .*\ngröße 模型/é.stl: binary STL, 4512 triangles" ${BRIEF} --log "größe 模型/ж.log"
  again.stl "größe 模型/é.stl")
expect_run(0 "^$" "^größe 模型/é.stl: binary STL, .*\n模型.größe.obj: OBJ, 4512 faces" ${BRIEF}
  "größe 模型/é.stl" "模型.größe.obj")
expect_same("模型.größe.obj" bearing.obj)

# Several inputs.
file(MAKE_DIRECTORY ${folder}/all)
file(WRITE ${folder}/cut.stl "solid cut\nfacet")
file(WRITE ${folder}/a_b.mtl "# no options")
expect_run(21 "^$" "^again.stl: .*\nError : cut.stl: [^\n]*\nflat.obj: .*\n3 files: 2 translated, 1 failed\n$" ${BRIEF}
  again.stl cut.stl flat.obj all --to-format=ply)
expect_run(21 "^$" "^Error : cut.stl: [^\n]*\n$" again.stl cut.stl flat.obj all/ --to-format=.ply)
file(GLOB all RELATIVE ${folder}/all ${folder}/all/*)
if(NOT all STREQUAL "again.ply;flat.ply")
  message(FATAL_ERROR "of several inputs there are ${all}")
endif()
if(words GREATER 1)
  expect_run(0 "^$" "\n2 files: 2 translated, 0 failed\n$" ${BRIEF} all/*.ply all --to-format stl)
endif()
foreach(mistake
    "all: is a folder; name the format of what goes there with --to-format| flat.obj all"
    "all/FLAT.stl: both flat.obj and FLAT.ply would be written there| flat.obj FLAT.ply all --to-format stl"
    "all: is a folder, and standard input has no name to put there; .*| - all --to-format stl"
    "again.obj: is no folder; several inputs need one to go to| flat.obj again.stl again.obj"
    "--to-format: a format, such as obj, should follow, not ''| flat.obj x --to-format="
    "--to-format=sla: not a known format, which are .obj, .ply or .stl| flat.obj again.stl all --to-format=sla"
    "a_b.mtl: is an options file of this run; name another file to write| red.obj a_b.obj --options a_b.mtl"
    "x.mtl: is another output of this run; name another file to write| red.obj x.mtl --to-format obj")
  string(REGEX MATCH "^(.*)[|] (.*)$" all "${mistake}")
  separate_arguments(arguments UNIX_COMMAND "${CMAKE_MATCH_2}")
  expect_run(11 "^$" "^Error : ${CMAKE_MATCH_1}\n$" ${arguments})
endforeach()

expect_run(13 "^$" "^Error : none.stl: cannot be opened: No such file or directory\n$" none.stl none.obj)
expect_run(17 "^$" "^Error : flat.obj: placed and scaled, a coordinate is too large\n$"
  flat.obj flat.stl --placement "1e39 0 0 0 0 1e39 0 0 0 0 1e39 0")
set(try "Try 'kova-translate --help'\n$")
expect_run(11 "^$" "^Error : an input and an output are wanted\n${try}" flanged-bearing.stl)
expect_run(11 "^$" "^Error : --x%s: no such argument\n${try}" flanged-bearing.stl --x%s out.obj)
expect_run(11 "^$" "^Error : -x: no such argument; a file of this name is ./-x\n${try}" -x out.obj)
expect_run(11 "^$" "^Error : --split: takes no value\n$" --split=1 flat.obj out.obj)
expect_run(0 "^kova-translate [0-9]+\\.[0-9]+\\.[0-9]+\n$" "^$" --version --level NONE)
expect_run(0 "^obj  OBJ\nply  PLY\nstl  STL\n$" "^$" --list-formats)

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
  --set /XMesh/Import/WeldTol=0.001 --timing --log report.log WORKING_DIRECTORY ${folder} ERROR_VARIABLE console)
expect_golden(report.txt "${console}")
file(READ ${folder}/report.log log)
expect_golden(report.txt "${log}")
expect_run(21 "^$" "^Error : flat.obj: triangle 1 has no area\n$"
  flat.obj flat.stl --set /XMesh/Import/Degenerate=fail --log-json failure.json)
file(READ ${folder}/failure.json log)
expect_golden(failure.json "${log}")
expect_run(21 "^$" "^$" flat.obj flat.stl --set /XMesh/Import/Degenerate=fail --level None)
expect_run(11 "^$" "^Error : --level: BRIEF, ALL, .* or NONE should follow, not 'WARN%s'\n$" --level WARN%s)
expect_run(14 "^$" "^Error : none/x.log: cannot be created: " flat.obj x.stl --log none/x.log)
foreach(log flat.obj ./flat.obj x.stl other.STL report.options)
  expect_run(11 "^$" "^Error : ${log}: cannot be a log: " flat.obj x.stl --log-json ${log} --options report.options)
endforeach()
expect_run(11 "^$" "^Error : plain: cannot be a log: the run needs" flat.obj ./plain --to-format stl --log plain)
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
expect_run(0 "^/OBJ/Export/Normals       string  keep    [^\n]+
/PLY/Export/Encoding      string  little  [^\n]+
/STL/Export/Ascii         bool    Off   [^\n]+
/XMesh/Export/Digits      int     0     [^\n]+
/XMesh/Import/Degenerate  string  keep  [^\n]+
/XMesh/Import/WeldTol     double  0     [^\n]+\n$" "^$" --list-options)
expect_run(11 "^$" "${mistakes}" flanged-bearing.stl no.obj --options bad.options --set /STL/Export/Ascii=100%s)
expect_run(11 "^$" "^Error : --set: NAME=VALUE should follow\n${try}" --set)
expect_run(13 "^$" "^Error : none: cannot be opened: No such file" --show-options --options none)
if(EXISTS ${folder}/no.obj)
  message(FATAL_ERROR "no.obj was written in spite of mistakes in the options")
endif()
# An emulator may begin with an environment of its own.
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
set(warnings "^Warning : mesh.options: '/XGeneric/SewBody' has no effect here \\(line 4\\)\n${overridden}")
expect_run(0 "^${shown}$" "${warnings}$" ${BRIEF} --show-options --ascii ${digits} --options mesh.options)
expect_run(0 "^${shown}$" "${warnings}flanged-bearing.stl: .*\nflanged-bearing.stl: 0 triangles without area dropped\n"
  ${BRIEF} --show-options --options mesh.options --ascii flanged-bearing.stl ${digits} rounded.stl)
file(STRINGS ${folder}/rounded.stl long REGEX "vertex.* -?[1-9][0-9]\\.[0-9][0-9]")
if(long)
  message(FATAL_ERROR "more than 3 digits in rounded.stl: ${long}")
endif()

# A library for another version of the interface is refused before any function of it is called.
unset(ENV{KOVA/XMesh/Export/Digits})
file(COPY ${bin}/ DESTINATION ${folder}/other FILES_MATCHING PATTERN "kova-translate*" PATTERN "*kova.*" PATTERN "kova_format_*")
file(COPY ${others} DESTINATION ${folder}/other)
file(WRITE ${folder}/in.xyz "0 0 0\n")
string(REGEX REPLACE "[^;]*/(kova-translate[^/]*)$" "${folder}/other/\\1" program "${program}")
set(refused "^Error : kova_format_xyz: made for version [0-9]+ of the interface to formats; this program has version [0-9]+\n$")
expect_run(9 "^$" "${refused}" in.xyz out.obj)
expect_run(9 "^$" "${refused}" flat.obj out.xyz)
expect_run(0 "^$" "^$" flat.obj out.ply)
expect_run(4 "^$" "^Error : in.xyz: ODD cannot be read\n$" in.xyz out.obj --from-format odd)
expect_run(7 "^$" "^Error : flat.obj: an odd day\n$" flat.obj out.odd)
foreach(file out.xyz called)
  if(EXISTS ${folder}/${file})
    message(FATAL_ERROR "${file}: a function of a library of another version was called")
  endif()
endforeach()

# The help's list of exit statuses is that of those that were seen. Ctrl-C is for a test of its own.
if(EXISTS /dev/full AND words EQUAL 1)
  expect_run(15 "^$" "^Error : /dev/full: only 0 of [0-9]+ bytes could be written: No space left on device [^\n]*\n$" flat.obj /dev/full --to-format ply)
endif()
get_property(seen GLOBAL PROPERTY STATUSES)
if(words GREATER 1)
  list(APPEND seen 15)
endif()
list(APPEND seen 3)
list(REMOVE_DUPLICATES seen)
list(SORT seen COMPARE NATURAL)
execute_process(COMMAND ${program} --help OUTPUT_VARIABLE help)
string(REGEX MATCH "Exit status:\r?\n(  [^\n]*\n)+" statuses "${help}")
string(REGEX MATCHALL "\n  [0-9]+ " listed "${statuses}")
string(REGEX REPLACE "[\n ]" "" listed "${listed}")
if(NOT seen STREQUAL listed)
  message(FATAL_ERROR "exit statuses ${seen} were seen, and --help lists ${listed}")
endif()

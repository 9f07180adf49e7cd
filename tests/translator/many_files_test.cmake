# Translates a folder with several processes at once, by the very command that docs/translator.md shows for TOOL.

file(REMOVE_RECURSE ${folder})
file(MAKE_DIRECTORY ${folder}/models ${folder}/out ${folder}/alone)
cmake_path(GET program PARENT_PATH bin)
set(ENV{PATH} "${bin}:$ENV{PATH}")
function(sh command)
  execute_process(COMMAND sh -c "${command}" WORKING_DIRECTORY ${folder}
    RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
  set(status ${status} PARENT_SCOPE)
  set(output "${output}" PARENT_SCOPE)
  set(errors "${errors}" PARENT_SCOPE)
endfunction()
function(expect what)
  if(NOT (${ARGN}))
    message(FATAL_ERROR "${what}: not ${ARGN}\nstatus ${status}\n${output}\n${errors}")
  endif()
endfunction()

# A dozen that are sound, with awkward names, and one that ends too early.
sh("cp '${model}' alone/model.stl && kova-translate alone/model.stl alone/model.obj &&
    for i in 1 2 3 4 5 6 7 8 9; do cp alone/model.stl \"models/part $i.stl\"; done &&
    cp alone/model.stl 'models/größe.stl' && cp alone/model.stl \"models/tail's \\\"end\\\".stl\" &&
    cp alone/model.obj models/part\\ 1.obj && head -c 1000 alone/model.stl >models/cut.stl")
expect("making models" status EQUAL 0)

file(STRINGS ${manual} command REGEX "^[$] .*${tool} .* kova-translate ")
string(REGEX REPLACE "^[$] " "" command "${command}")
sh("${command}")
expect("the one failure shows" NOT status EQUAL 0)
expect("only the one failure is said" errors MATCHES "^Error : models/cut.stl: [^\n]*\n$")
sh("for model in models/*.stl; do
      [ \"$model\" = models/cut.stl ] || cmp alone/model.obj \"out/\${model#models/}.obj\" || exit
    done; ls | tr '\n' ' '; ls out | wc -l")
expect("each is as if it were alone" status EQUAL 0)
expect("nothing else is left" output MATCHES "^alone models out 25\n$") # 12 models, 13 logs

sh("kova-translate 'models/part 2.stl' models/cut.stl models/größe.stl alone --to-format ply --log-json out/several.json;
    touch out/empty.json && head -n 3 'out/part 2.stl.json' >out/stopped.json && awk -f '${filter}' out/*.json")
string(REGEX REPLACE "\n$" "" lines "${output}")
string(REPLACE "\n" ";" lines "${lines}")
set(all "")
foreach(line IN LISTS lines)
  string(JSON log GET "${line}" log)
  string(JSON input GET "${line}" input)
  string(JSON result GET "${line}" result)
  string(JSON error GET "${line}" error)
  string(JSON duration TYPE "${line}" duration)
  string(APPEND all "${log} ${input} ${result} ${duration} ${error}\n")
endforeach()
list(LENGTH lines count)
expect("a line for each conversion" count EQUAL 18)
foreach(one
    "out/cut.stl.json models/cut.stl failed NUMBER Error : models/cut.stl: [^\n]*"
    "out/größe.stl.json models/größe.stl translated NUMBER "
    "out/tail's \"end\".stl.json models/tail's \"end\".stl translated NUMBER "
    "out/several.json models/part 2.stl translated NUMBER \nout/several.json models/cut.stl failed NUMBER Error [^\n]*\nout/several.json models/größe.stl translated NUMBER "
    "out/stopped.json  not finished NULL "
    "out/empty.json  not finished NULL ")
  if(NOT "\n${all}" MATCHES "\n${one}\n")
    message(FATAL_ERROR "'${one}' is missing in\n${all}")
  endif()
endforeach()

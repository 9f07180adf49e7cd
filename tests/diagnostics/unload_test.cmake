# Runs a program that ends with its timing report open, and reads what it says after its end.

execute_process(COMMAND ${program} RESULT_VARIABLE status OUTPUT_VARIABLE output ERROR_VARIABLE errors)
string(REPLACE "\r" "" output "${output}")
string(REGEX REPLACE "[0-9]+\\.[0-9][0-9]" "#" output "${output}")
string(REPEAT "-" 80 dashes)
set(wanted "Message : Task Timing On
Input File           : part.stl
----------------------------File Header Information-----------------------------
${dashes}
Message : Read File Time = # seconds.
Message : ================ Task Timing Info ================
Message :                        Read File Time =       #
Message : ==================================================
")
if(NOT status STREQUAL 0 OR NOT output STREQUAL wanted OR NOT errors STREQUAL "")
  message(FATAL_ERROR "status ${status}\noutput:\n${output}\nwanted:\n${wanted}\nerrors:\n${errors}")
endif()

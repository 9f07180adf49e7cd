# The warnings that all of this project's own code is clean of.
function(kova_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
  if(KOVA_WERROR)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
endfunction()

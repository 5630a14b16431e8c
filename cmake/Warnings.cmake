# Strict warnings for our own targets; core/ treats them as errors.
function(vantrelle_strict_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                           -Wold-style-cast -Woverloaded-virtual -Wimplicit-fallthrough)
endfunction()

function(vantrelle_warnings_as_errors target)
  vantrelle_strict_warnings(${target})
  target_compile_options(${target} PRIVATE -Werror)
endfunction()

# One strict warning set, as errors, for every target of ours: a warning left in one folder is a
# warning copied into the next.
function(vantrelle_warnings target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                                           -Wold-style-cast -Woverloaded-virtual -Wimplicit-fallthrough
                                           -Werror)
endfunction()

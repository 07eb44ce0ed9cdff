# Reading the headers of the toolkit, of the tests and of the standard library is most of a compiler's work here: a
# target reads those that most of its files share once. Not beside a compiler cache, which would find every object
# changed whenever one of them is.
function(precompile target)
  if(VASTREL_READ_HEADERS_ONCE)
    target_precompile_headers(${target} PRIVATE ${ARGN})
    # Code of the standard library that comes so is no longer told apart as the system's, and GCC 12 warns of its
    # strings without reason.
    target_compile_options(${target} PRIVATE -Wno-array-bounds -Wno-restrict -Wno-stringop-overflow
                           -Wno-stringop-overread)
  endif()
endfunction()

set(STANDARD_HEADERS <algorithm> <array> <cmath> <functional> <map> <memory> <optional> <string> <vector>)

# The flags of every target of ours.
#
# Results must equal those of the plain loops in every bit, and every arithmetic fault must show in the
# floating-point flags: no contraction, no fast-math, no link-time optimisation, trapping arithmetic assumed.
add_library(vastrel_flags INTERFACE)
target_compile_options(vastrel_flags INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror
                                               -ffp-contract=off -ftrapping-math)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(vastrel_flags INTERFACE -ffp-exception-behavior=strict)
endif()
if(VASTREL_SANITIZE)
  target_compile_options(vastrel_flags INTERFACE -fsanitize=${VASTREL_SANITIZE} -fno-sanitize-recover=all
                                                 -fno-omit-frame-pointer -g1)
  target_link_options(vastrel_flags INTERFACE -fsanitize=${VASTREL_SANITIZE})
endif()
if(VASTREL_FUZZ)
  target_compile_options(vastrel_flags INTERFACE -fsanitize=fuzzer-no-link)
  target_link_options(vastrel_flags INTERFACE -fsanitize=fuzzer-no-link)
endif()

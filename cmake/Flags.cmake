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
  # Beside undefined behaviour, what wraps or loses a value without a cast is a finding too, save where it is
  # meant. (The list is given by its older name, under which the compiler's cache looks into it.)
  set(fuzzChecks fuzzer-no-link,unsigned-integer-overflow,implicit-conversion)
  target_compile_options(vastrel_flags INTERFACE -fsanitize=${fuzzChecks} -fno-sanitize-recover=all
                                                 -fsanitize-blacklist=${PROJECT_SOURCE_DIR}/fuzz/meant.txt)
  target_link_options(vastrel_flags INTERFACE -fsanitize=${fuzzChecks})
endif()

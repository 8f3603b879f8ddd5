# Warnings are an interface target, so that no foreign code gets them.
add_library(yrexwarnings INTERFACE)
target_compile_options(yrexwarnings INTERFACE -Wall -Wextra -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  target_compile_options(yrexwarnings INTERFACE -Wlogical-op -Wduplicated-cond)
endif()
if(YREX_WERROR)
  target_compile_options(yrexwarnings INTERFACE -Werror)
endif()
# -Wconversion only where numbers and sizes from files are handled; Qt's int sizes make it noise elsewhere.
add_library(yrexconversion INTERFACE)
target_compile_options(yrexconversion INTERFACE -Wconversion -Wno-sign-conversion -Wno-float-conversion)

add_library(yrexsanitizers INTERFACE)
if(YREX_SANITIZE)
  target_compile_options(yrexsanitizers INTERFACE -fsanitize=address,undefined -fno-sanitize-recover=undefined
                                                  -fno-omit-frame-pointer)
  target_link_options(yrexsanitizers INTERFACE -fsanitize=address,undefined)
endif()
if(YREX_FUZZ)
  target_compile_options(yrexsanitizers INTERFACE -fsanitize=fuzzer-no-link)
endif()

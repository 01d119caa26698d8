# Finds Cocoa: the frameworks of macOS, or GNUstep and an Objective-C++ compiler for it. Defines the
# target `cocoa`, which everything that touches Cocoa links to, and `foundation`, the part of it that
# needs no screen.
add_library(foundation INTERFACE)
add_library(cocoa INTERFACE)
target_link_libraries(cocoa INTERFACE foundation)

if(APPLE)
    enable_language(OBJCXX)
    target_link_libraries(foundation INTERFACE "-framework Foundation")
    target_link_libraries(cocoa INTERFACE "-framework Cocoa")
    return()
endif()

# g++ neither constructs C++ members of Objective-C classes nor answers zeroes for structures asked
# of nil, so Objective-C++ is always clang's, whichever compiler the core is built with.
find_program(CLANGXX NAMES clang++ REQUIRED)
set(CMAKE_OBJCXX_COMPILER ${CLANGXX})
enable_language(OBJCXX)

find_program(GNUSTEP_CONFIG gnustep-config REQUIRED)
foreach(kind objc-flags base-libs gui-libs)
    execute_process(COMMAND ${GNUSTEP_CONFIG} --${kind}
        OUTPUT_VARIABLE ${kind} OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(NOT ${kind})
        message(FATAL_ERROR "gnustep-config knows no ${kind}: it needs make to find out")
    endif()
    separate_arguments(${kind} UNIX_COMMAND "${${kind}}")
    # What a user has installed at home is no part of the build, and would make it another one for
    # each user.
    list(FILTER ${kind} EXCLUDE REGEX "/GNUstep/Library/(Headers|Libraries)$")
endforeach()
# CMake tracks dependencies, the optimisation is the preset's, and the headers are not ours to warn
# about.
list(REMOVE_ITEM objc-flags -MMD -MP -g -O2 -I.)
list(TRANSFORM objc-flags REPLACE "^-I" "-isystem")

# The runtime's headers belong to gcc; clang has none of its own.
execute_process(COMMAND gcc -print-file-name=include
    OUTPUT_VARIABLE gcc_include OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
find_path(OBJC_INCLUDE objc/objc.h HINTS ${gcc_include} REQUIRED)
# Only its objc folder: the other headers there are made for gcc.
file(MAKE_DIRECTORY ${PROJECT_BINARY_DIR}/objc-include)
file(CREATE_LINK ${OBJC_INCLUDE}/objc ${PROJECT_BINARY_DIR}/objc-include/objc SYMBOLIC)

target_compile_options(foundation INTERFACE $<$<COMPILE_LANGUAGE:OBJCXX>:${objc-flags}
    -fobjc-runtime=gcc -isystem${PROJECT_BINARY_DIR}/objc-include>)
target_link_libraries(foundation INTERFACE ${base-libs})
target_link_libraries(cocoa INTERFACE ${gui-libs})

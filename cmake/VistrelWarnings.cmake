# The flags that every target of ours is compiled with. Nothing that warns is let through.
add_library(vistrel_flags INTERFACE)
target_compile_options(vistrel_flags INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast
    -Wnon-virtual-dtor -Woverloaded-virtual -Werror)
# A description is written with the members that matter; the others have defaults.
target_compile_options(vistrel_flags INTERFACE -Wno-missing-field-initializers)

if(VISTREL_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link)
endif()
if(VISTREL_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()

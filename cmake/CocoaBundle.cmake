include(CheckLinkerFlag)
# Objective-C's tables are all pointers; packed, they take a tenth of the room.
check_linker_flag(CXX -Wl,-z,pack-relative-relocs PACKS_RELATIVE_RELOCATIONS)

# add_cocoa_bundle(TARGET [INSERTABLE] NAME name PRINCIPAL_CLASS class SOURCES file... [RESOURCES file...]
#                  [INFO key text...] [INSTALLED])
#
# Makes the loadable bundle `name`.bundle in ${PROJECT_BINARY_DIR}/bundles: flat for GNUstep,
# Contents/MacOS for macOS, from one Info.plist template, to which INFO adds texts of the bundle's own.
# Interface files are copied for GNUstep, which reads them as they are, and compiled for macOS, which does
# not. The program of an INSERTABLE bundle can also be inserted into a macOS process as a library.
# INSTALLED: users get the bundle, not only tests. A program exports its Objective-C classes only, so
# that nothing of it is taken for the host's own.
function(add_cocoa_bundle target)
    cmake_parse_arguments(PARSE_ARGV 1 BUNDLE "INSERTABLE;INSTALLED"
        "NAME;PRINCIPAL_CLASS" "SOURCES;RESOURCES;INFO")
    set(kind MODULE)
    if(APPLE AND BUNDLE_INSERTABLE)
        set(kind SHARED)
    endif()
    add_library(${target} ${kind} ${BUNDLE_SOURCES})
    target_link_libraries(${target} PRIVATE vistrel_flags cocoa)
    if(NOT APPLE)
        target_link_options(${target} PRIVATE
            -Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/exports.map -Wl,--gc-sections)
        if(PACKS_RELATIVE_RELOCATIONS)
            target_link_options(${target} PRIVATE -Wl,-z,pack-relative-relocs)
        endif()
        set_target_properties(${target} PROPERTIES
            LINK_DEPENDS ${PROJECT_SOURCE_DIR}/cmake/exports.map)
    endif()

    set(bundle ${PROJECT_BINARY_DIR}/bundles/${BUNDLE_NAME}.bundle)
    if(APPLE)
        set(executables ${bundle}/Contents/MacOS)
        set(resources ${bundle}/Contents/Resources)
        set(info ${bundle}/Contents/Info.plist)
    else()
        set(executables ${bundle})
        set(resources ${bundle}/Resources)
        set(info ${resources}/Info-gnustep.plist)
    endif()
    set(BUNDLE_INFO_ENTRIES "")
    while(BUNDLE_INFO)
        list(POP_FRONT BUNDLE_INFO key text)
        string(REPLACE "&" "&amp;" text "${text}")
        string(REPLACE "<" "&lt;" text "${text}")
        string(APPEND BUNDLE_INFO_ENTRIES "\n\t<key>${key}</key>\n\t<string>${text}</string>")
    endwhile()
    configure_file(${PROJECT_SOURCE_DIR}/resources/Info.plist.in ${info} @ONLY)
    foreach(file ${BUNDLE_RESOURCES})
        get_filename_component(file ${file} ABSOLUTE)
        get_filename_component(name ${file} NAME)
        if(APPLE AND name MATCHES "\\.xib$")
            string(REGEX REPLACE "xib$" "nib" name ${name})
            add_custom_command(OUTPUT ${resources}/${name}
                COMMAND ibtool --compile ${resources}/${name} ${file} DEPENDS ${file} VERBATIM)
            target_sources(${target} PRIVATE ${resources}/${name})
        else()
            configure_file(${file} ${resources}/${name} COPYONLY)
        endif()
    endforeach()
    set_target_properties(${target} PROPERTIES
        PREFIX "" SUFFIX "" OUTPUT_NAME ${BUNDLE_NAME}
        LIBRARY_OUTPUT_DIRECTORY ${executables}
        BUNDLE_PATH ${bundle}
        OBJCXX_VISIBILITY_PRESET hidden)

    if(BUNDLE_INSTALLED)
        cmake_path(RELATIVE_PATH executables BASE_DIRECTORY ${PROJECT_BINARY_DIR}/bundles
            OUTPUT_VARIABLE inside)
        install(TARGETS ${target} LIBRARY DESTINATION ${VISTREL_BUNDLES_FOLDER}/${inside})
        install(DIRECTORY ${bundle} DESTINATION ${VISTREL_BUNDLES_FOLDER}
            FILES_MATCHING REGEX "/Resources/|/Info.plist$")
    endif()
endfunction()

# marrowcut_layer(<target> FOLDER <folder> SOURCES <file>... [LINKS <library>...])
#
# One library target per layer. A layer sees its own headers and those of the layers that it links,
# always spelled from the root ("media/probe.h"): every layer's include path is a folder that holds
# a link to that layer's folder and nothing else, so an include that points upwards does not build.
function(marrowcut_layer target)
    cmake_parse_arguments(PARSE_ARGV 1 layer "" "FOLDER" "SOURCES;LINKS")
    set(include_root ${CMAKE_BINARY_DIR}/include/${target})
    cmake_path(GET layer_FOLDER PARENT_PATH parent)
    file(MAKE_DIRECTORY ${include_root}/${parent})
    file(CREATE_LINK ${CMAKE_SOURCE_DIR}/${layer_FOLDER} ${include_root}/${layer_FOLDER} SYMBOLIC)

    add_library(${target} STATIC ${layer_SOURCES})
    target_include_directories(${target} PUBLIC ${include_root})
    target_link_libraries(${target} PUBLIC ${layer_LINKS})
    marrowcut_precompile(${target})
endfunction()

# marrowcut_join_generated_sources(<target>)
#
# Compiles the sources that Qt generates for a module, one for each QML file and a few more, as one file. Each of them
# holds a few kilobytes of data and would parse the same headers.
function(marrowcut_join_generated_sources target)
    get_target_property(separate ${target} SOURCES)
    list(FILTER separate EXCLUDE REGEX "_(qml|qmltyperegistrations)\\.cpp$")
    set_source_files_properties(${separate} TARGET_DIRECTORY ${target} PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)
    set_target_properties(${target} PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 0)
endfunction()

# marrowcut_qml_module(<target> <uri> [further arguments of qt_add_qml_module])
#
# Makes a layer of the window a QML module of its own.
function(marrowcut_qml_module target uri)
    string(REPLACE "." "/" folder ${uri})
    # The generated type registration includes the headers by their bare names.
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_SOURCE_DIR})
    # Compiled to C++, assignments to computed members get lost (Qt 6.4).
    set_target_properties(${target} PROPERTIES QT_QMLCACHEGEN_ARGUMENTS "--only-bytecode")
    qt_add_qml_module(${target}
        URI ${uri}
        VERSION 1.0
        RESOURCE_PREFIX /qt-project.org/imports
        OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/qml/${folder}
        IMPORT_PATH ${CMAKE_BINARY_DIR}/qml
        IMPORTS QtQuick
        ${ARGN}
    )
    marrowcut_join_generated_sources(${target})
    get_property(targets DIRECTORY PROPERTY BUILDSYSTEM_TARGETS)
    list(FILTER targets INCLUDE REGEX "^${target}(plugin|_qmlcache)")
    foreach(generated IN LISTS targets)
        marrowcut_precompile(${generated} window)
    endforeach()
    # The linter reads the finished descriptions of the modules below.
    get_property(modules GLOBAL PROPERTY MARROWCUT_QML_MODULES)
    get_target_property(links ${target} LINK_LIBRARIES)
    foreach(link IN LISTS links)
        if(link IN_LIST modules)
            add_dependencies(${target} ${link})
        endif()
    endforeach()
    set_property(GLOBAL APPEND PROPERTY MARROWCUT_QML_MODULES ${target})
endfunction()

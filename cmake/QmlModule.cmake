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

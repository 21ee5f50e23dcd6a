# Headers of Qt and of the standard library, parsed once for each of two sets instead of once per source file.
# None of our own is among them: include paths alone decide which layers a file sees. The preset `package`
# builds without, which finds a source that relies on an include it does not have.
option(MARROWCUT_PRECOMPILED_HEADERS "Parse the headers of Qt once for many source files" ON)

# marrowcut_header_set(<set> LINKS <library>... HEADERS <header>...)
function(marrowcut_header_set set)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINKS;HEADERS")
    set(source ${CMAKE_BINARY_DIR}/headers_${set}.cpp)
    file(CONFIGURE OUTPUT ${source} CONTENT "")
    add_library(headers_${set} OBJECT EXCLUDE_FROM_ALL ${source})
    set_target_properties(headers_${set} PROPERTIES AUTOMOC OFF)
    target_link_libraries(headers_${set} PRIVATE ${arg_LINKS})
    target_precompile_headers(headers_${set} PRIVATE ${arg_HEADERS})
endfunction()

# marrowcut_precompile(<target> [<set>])
#
# Without a name the set follows from what the target links.
function(marrowcut_precompile target)
    if(NOT MARROWCUT_PRECOMPILED_HEADERS)
        return()
    endif()
    get_target_property(links ${target} LINK_LIBRARIES)
    if(ARGN)
        set(set ${ARGN})
    elseif(links MATCHES "marrowcut_ui_|Qt6::Quick")
        set(set window)
    else()
        set(set core)
    endif()
    target_precompile_headers(${target} REUSE_FROM headers_${set})
endfunction()

if(MARROWCUT_PRECOMPILED_HEADERS)
    set(core_headers <algorithm> <array> <chrono> <functional> <memory> <optional> <stop_token>
        <QCoreApplication> <QDateTime> <QDir> <QFile> <QFileInfo> <QHash> <QList> <QObject> <QProcess>
        <QRegularExpression> <QString> <QStringList> <QTextStream> <QTimer> <QUrl> <QUuid> <QVariantMap>)
    marrowcut_header_set(core LINKS Qt6::Core HEADERS ${core_headers})
    if(MARROWCUT_WINDOW)
        marrowcut_header_set(window LINKS Qt6::Quick
            HEADERS ${core_headers} <QGuiApplication> <QQmlApplicationEngine> <QQuickWindow> <QtQml/qqmlprivate.h>)
    endif()
endif()

# The resource folder lies at ../share/marrowcut from a program's own folder, in the build tree as
# in an installed one. It holds links to the FFmpeg tools and the version keys.

find_program(MARROWCUT_FFMPEG ffmpeg REQUIRED)
find_program(MARROWCUT_FFPROBE ffprobe REQUIRED)

function(marrowcut_resource_folder folder)
    file(MAKE_DIRECTORY ${folder})
    file(CREATE_LINK ${MARROWCUT_FFMPEG} ${folder}/ffmpeg SYMBOLIC)
    file(CREATE_LINK ${MARROWCUT_FFPROBE} ${folder}/ffprobe SYMBOLIC)
    configure_file(${CMAKE_SOURCE_DIR}/resources/version.ini.in ${folder}/version.ini @ONLY)
endfunction()

# Installed links are made for their own place instead of copied: relative where the tools lie under the
# same prefix, as packages want it.
function(marrowcut_install_resource_folder)
    set(folder ${CMAKE_INSTALL_DATADIR}/marrowcut)
    install(FILES ${CMAKE_BINARY_DIR}/share/marrowcut/version.ini DESTINATION ${folder})
    foreach(tool ${MARROWCUT_FFMPEG} ${MARROWCUT_FFPROBE})
        install(CODE "
            set(target \"${tool}\")
            cmake_path(GET target FILENAME name)
            cmake_path(IS_PREFIX CMAKE_INSTALL_PREFIX \"\${target}\" shares_prefix)
            if(shares_prefix)
                cmake_path(RELATIVE_PATH target BASE_DIRECTORY \"\${CMAKE_INSTALL_PREFIX}/${folder}\")
            endif()
            file(CREATE_LINK \"\${target}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${folder}/\${name}\" SYMBOLIC)
        ")
    endforeach()
endfunction()

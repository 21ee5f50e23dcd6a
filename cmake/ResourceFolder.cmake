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

function(marrowcut_install_resource_folder)
    install(DIRECTORY ${CMAKE_BINARY_DIR}/share/marrowcut DESTINATION ${CMAKE_INSTALL_DATADIR})
endfunction()

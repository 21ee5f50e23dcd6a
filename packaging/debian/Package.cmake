# The Debian packages, one for each component of the installation: marrowcut-cli and marrowcut, the window, which
# needs it. ./run --package makes them with the flags and the tools' places that suit a package (preset `package`).

set(CPACK_GENERATOR DEB)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_NAME marrowcut)
set(CPACK_PACKAGE_VENDOR "The Marrowcut authors")
set(CPACK_PACKAGE_CONTACT "The Marrowcut authors <marrowcut@quorvane.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://quorvane.example")
set(CPACK_SET_DESTDIR ON) # so that the install rules know the true prefix
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_PACKAGE_RELEASE ${MARROWCUT_BUILD_NUMBER})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

set(about
"Marrowcut makes small H.264 proxies of camera footage (MXF, MOV, MP4), with
file name, source timecode, elapsed time and file date burned into the
picture, for transcription services and rough cuts.")

# describe_package(<package> SUMMARY <text> DESCRIPTION <text> RUN_TIME_LIST <list> [DEPENDS <text>])
#
# Libraries are found out from the programs; what these start or load by name is a list of scripts/, which the build
# installs as well.
function(describe_package package)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "SUMMARY;DESCRIPTION;RUN_TIME_LIST;DEPENDS" "")
    set(list ${CMAKE_SOURCE_DIR}/scripts/packages-${arg_RUN_TIME_LIST})
    file(STRINGS ${list} depends REGEX "^[^#]")
    set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${list})
    list(PREPEND depends ${arg_DEPENDS})
    list(JOIN depends ", " depends)

    string(TOUPPER CPACK_DEBIAN_${package} prefix)
    set(${prefix}_PACKAGE_NAME ${package} PARENT_SCOPE)
    set(${prefix}_PACKAGE_SHLIBDEPS ON PARENT_SCOPE)
    set(${prefix}_PACKAGE_DEPENDS ${depends} PARENT_SCOPE)
    set(${prefix}_DESCRIPTION "${arg_SUMMARY}\n${about}\n${arg_DESCRIPTION}" PARENT_SCOPE)

    set(doc ${CMAKE_INSTALL_DATADIR}/doc/${package})
    set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME ${package})
    install_compressed(${CMAKE_CURRENT_BINARY_DIR}/debian-changelog ${doc} changelog.Debian)
    install_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${doc} changelog)
    install(FILES debian/copyright DESTINATION ${doc})
    configure_file(debian/lintian-overrides.in lintian-overrides-${package})
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/lintian-overrides-${package}
        DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME ${package})
endfunction()

set(version ${PROJECT_VERSION}-${MARROWCUT_BUILD_NUMBER})
configure_file(debian/changelog.in debian-changelog @ONLY)
describe_package(marrowcut-cli
    RUN_TIME_LIST run-cli
    SUMMARY "small proxies of camera clips, on the command line"
    DESCRIPTION "This package has the command line, which works without a display.")
# Its files were in the package of the window once.
set(CPACK_DEBIAN_MARROWCUT-CLI_PACKAGE_BREAKS "marrowcut (<< 1.0-2)")
set(CPACK_DEBIAN_MARROWCUT-CLI_PACKAGE_REPLACES "marrowcut (<< 1.0-2)")
install(FILES ${CMAKE_SOURCE_DIR}/docs/json-events.md ${CMAKE_SOURCE_DIR}/docs/json-events.schema.json
    ${CMAKE_SOURCE_DIR}/docs/many-machines.md
    DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/marrowcut-cli)
set(CPACK_COMPONENTS_ALL marrowcut-cli)
if(MARROWCUT_WINDOW)
    list(APPEND CPACK_COMPONENTS_ALL marrowcut)
    describe_package(marrowcut
        DEPENDS "marrowcut-cli (= ${version})"
        RUN_TIME_LIST run-window
        SUMMARY "small proxies of camera clips with burned-in timecode"
        DESCRIPTION "This package has the window on which clips are dropped.")
endif()

include(CPack)

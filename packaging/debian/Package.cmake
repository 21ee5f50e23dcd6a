# The Debian package: target `package`, or ./run --package, which also takes the flags and the tools'
# places that suit a package (preset `package`).

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME marrowcut)
set(CPACK_PACKAGE_VENDOR "The Marrowcut authors")
set(CPACK_PACKAGE_CONTACT "The Marrowcut authors <marrowcut@quorvane.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL "https://quorvane.example")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "small proxies of camera clips with burned-in timecode")
set(CPACK_SET_DESTDIR ON) # so that the install rules know the true prefix
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_PACKAGE_RELEASE ${MARROWCUT_BUILD_NUMBER})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION video)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Marrowcut makes small H.264 proxies of camera footage (MXF, MOV, MP4), with
file name, source timecode, elapsed time and file date burned into the
picture, for transcription services and rough cuts. Clips are dropped on its
window, or given to marrowcut-cli, which works without a display.")

# Libraries are found out from the programs; what they start or load by name is the list of the build.
file(STRINGS ${CMAKE_SOURCE_DIR}/scripts/packages-run run_time_packages REGEX "^[^#]")
set_property(DIRECTORY ${CMAKE_SOURCE_DIR} APPEND PROPERTY
    CMAKE_CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/scripts/packages-run)
list(JOIN run_time_packages ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)

set(doc ${CMAKE_INSTALL_DATADIR}/doc/marrowcut)
configure_file(debian/changelog.in debian-changelog @ONLY)
install_compressed(${CMAKE_CURRENT_BINARY_DIR}/debian-changelog ${doc} changelog.Debian)
install_compressed(${CMAKE_SOURCE_DIR}/CHANGELOG.md ${doc} changelog)
install(FILES debian/copyright ${CMAKE_SOURCE_DIR}/docs/json-events.md
    ${CMAKE_SOURCE_DIR}/docs/json-events.schema.json DESTINATION ${doc})
install(FILES debian/lintian-overrides DESTINATION ${CMAKE_INSTALL_DATADIR}/lintian/overrides RENAME marrowcut)

include(CPack)

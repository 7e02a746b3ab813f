# The Debian package, made by `cpack` in a release build; ./package does all of it.
#
# What Debian wants beside an ordinary installation is a component of its own.
set(documents "${CMAKE_INSTALL_DATADIR}/doc/quellbrook")
install(FILES debian/copyright DESTINATION "${documents}" COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES debian/changelog DESTINATION "${documents}" RENAME changelog.Debian COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md" DESTINATION "${documents}" RENAME changelog
    COMPONENT debian EXCLUDE_FROM_ALL)
install(FILES debian/lintian-overrides DESTINATION "${CMAKE_INSTALL_DATADIR}/lintian/overrides" RENAME quellbrook
    COMPONENT debian EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB)
set(CPACK_INSTALL_CMAKE_PROJECTS
    "${PROJECT_BINARY_DIR};Quellbrook;ALL;/"
    "${PROJECT_BINARY_DIR};Quellbrook;debian;/")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_STRIP_FILES ON)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/finish.cmake")

set(CPACK_PACKAGE_NAME quellbrook)
set(CPACK_PACKAGE_CONTACT "Quellbrook maintainers <maintainers@quellbrook.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "pad calculator")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION [[
The whole surface is one editable sheet of plain text. Type a line and press
Enter, and the answer stands in bold on the line below.

The sheet understands arithmetic, variables, equations, conversions between
units in plain words, dates and durations, statistics, finance and other
number bases. A manual comes with it.]])
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION math)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# For the release check over HTTPS, a Wayland display, and the log in the user's own editor.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "ca-certificates, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)

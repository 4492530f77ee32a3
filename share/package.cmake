# package.cmake: the package for Debian, which ./package makes.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillan)
set(CPACK_PACKAGE_VERSION ${QUILLAN_VERSION})
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "The Quillan developers <developers@quillan.example>")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${PROJECT_HOMEPAGE_URL})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Plots are lettered in Liberation Sans, menus and dialogs in the system's sans family.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-liberation2 | fonts-liberation, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, bash-completion")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for time-domain electromagnetic soundings")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Quillan opens averaged field data of time-domain electromagnetic (TEM)
surveys, shows every decay curve and pseudosection, skips bad windows by hand
or by rule, averages repeats, merges early with late records, positions the
stations, and hands on clean files in the formats that the next program reads.
It plays session scripts over many files, without a display.")

set(debian ${PROJECT_BINARY_DIR}/share/debian)
execute_process(COMMAND ${PROJECT_SOURCE_DIR}/tools/debian_changelog.sh "${CPACK_DEBIAN_PACKAGE_MAINTAINER}"
  INPUT_FILE ${PROJECT_SOURCE_DIR}/CHANGELOG.md OUTPUT_VARIABLE changelog COMMAND_ERROR_IS_FATAL ANY)
file(WRITE ${debian}/changelog "${changelog}")
execute_process(COMMAND gzip -9nc ${debian}/changelog OUTPUT_FILE ${debian}/changelog.gz COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${debian}/changelog.gz ${PROJECT_SOURCE_DIR}/share/linux/copyright DESTINATION ${CMAKE_INSTALL_DOCDIR})
if(PANDOC)
  install(FILES ${PROJECT_SOURCE_DIR}/share/linux/quillan.doc-base DESTINATION ${CMAKE_INSTALL_DATADIR}/doc-base
    RENAME quillan.guide)
endif()
include(CPack)

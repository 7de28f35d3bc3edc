# `make package`: a Debian package of what `make install` installs. To be included last.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME hourwright)
set(CPACK_PACKAGE_VENDOR "Hourwright developers")
set(CPACK_PACKAGE_CONTACT "Hourwright developers <maintainers@hourwright.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_PACKAGE_DESCRIPTION "Hourwright records a consultant's time and expenses by client, project and
task, prices them by rates, marks them billed and paid, and exports them as
CSV, XML, JSON, calendars and documents.
.
The window hourwright shows days, weeks and months as calendars and lists,
runs timers and keeps notes with drawings and recordings; the command line
hwctl does the same work from a terminal. Both share one SQLite file on this
computer, and need no network.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)

set(CPACK_RESOURCE_FILE_CHANGELOG ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_LIST_DIR}/DebianFiles.cmake)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${CPACK_PACKAGE_CONTACT}")
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
# The libraries come from dpkg-shlibdeps, with the versions that the binaries really need.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Windows under Wayland, and opening files and the manual with the desktop's programs.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils")

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR} RENAME copyright)
include(CPack)

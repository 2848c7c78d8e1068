# The Debian package: cpack in the build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME merlu)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT "MERLU-2017 maintainers <maintainers@example.org>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-dejavu-core")  # the PDF's texts; libraries add theirs
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, shared-mime-info, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"monthly activity of offshore platforms, typed and checked
MERLU-2017 keeps the inventory of an operator of offshore oil and gas
platforms: survey months, structures, and their equipment of sixteen types,
one file for a year.

Rules look at every month that is typed, flag and list what they refuse, and
take a comment for what is odd but right. A check over the year is written as
a PDF. The screens are also driven by scripts, without a display.")
include(CPack)

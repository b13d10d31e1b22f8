# The Debian package, made by `cpack -G DEB` in a release build tree: the two programs, the
# desktop entry, icon and AppStream metainfo, the sample problems and the licence. The package
# installs under CMAKE_INSTALL_PREFIX, where the program looks for itself to know it was
# installed, so configure the tree with -DCMAKE_INSTALL_PREFIX=/usr.
set(CPACK_PACKAGE_NAME brennik)
set(CPACK_PACKAGE_VENDOR "The Brennik developers")
set(CPACK_PACKAGE_CONTACT "The Brennik developers <brennik@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "cutting plans for linear material with the least waste")
set(CPACK_PACKAGE_DESCRIPTION
    "Brennik works out how many bars of each standard length to buy and how to cut every one of
them, keeping the waste of money or of material small, for up to 6 standard lengths and 40
lengths to cut. It writes a plain-text cutting schedule, draws the bars, and prints them or
writes them as PDF or SVG. brennik-solve gives the same answers without the screens.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX ${CMAKE_INSTALL_PREFIX})
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
# The shared libraries the programs link (Qt 6, COIN-OR) are found by dpkg-shlibdeps; the
# platform plugin that opens a window on X11 or Wayland is loaded at run time, so it is named.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_STRIP_FILES ON)

install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/brennik RENAME copyright)

include(CPack)

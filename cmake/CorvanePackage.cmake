# The Debian package (`bash scripts/package`): what `cmake --install` puts under /usr.
# Its dependencies are read from the libraries the programs link (dpkg-shlibdeps), plus what
# Qt loads at run time as plugins: the SQLite driver of the store and the display plugins.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "The Corvane developers")
set(CPACK_PACKAGE_CONTACT "The Corvane developers <maintainers@corvane.org>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "recipe book of mixed drinks for bars and home bartenders")
set(CPACK_PACKAGE_DESCRIPTION
"Corvane keeps a searchable recipe book of mixed drinks in one local file.
It comes with a starter book of about 270 drinks, their ingredients with
prices, glasses with pictures and page templates. Browse drinks by name,
liquor, glassware or category, search and save searches, see what the bottles
you own can make, edit recipes, cost and price drinks from ingredient prices,
and exchange drinks with other users through .cvx files.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://corvane.org/")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, qt6-qpa-plugins")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
include(CPack)

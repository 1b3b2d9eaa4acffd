# How `cpack` makes one Debian package of what is installed.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME feedloom)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Feedloom developers")
set(CPACK_PACKAGE_CONTACT "Feedloom developers <feedloom@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "desktop feed reader")
set(CPACK_PACKAGE_DESCRIPTION
    "Feedloom keeps RSS and Atom feeds in folders, fetches them into a local
database, and lists, searches, shows and clips their posts; in Korean and
English, in a window (halvix) and from the command line (feedloomctl).")
set(CPACK_RESOURCE_FILE_LICENSE ${CMAKE_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_THREADS 0)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://feedloom.example/")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# The libraries come by themselves. Beside them: Hangul in windows and pages, https transfers, and
# the toolkit's own Korean texts.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "fonts-nanum, ca-certificates, qt6-translations-l10n")
# tools/feedloom-directory is a script; a Wayland desktop need not have an X server; the icon is SVG;
# posts have emoji, and Chinese and Japanese texts.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS
    "python3, qt6-wayland, libqt6svg6, fonts-noto-color-emoji, fonts-noto-cjk")

include(CPack)

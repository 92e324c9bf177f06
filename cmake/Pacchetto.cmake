# The Debian package: `cpack -G DEB` in a Release build tree after scripts/prepara-dati, which
# writes vesmo_<version>_<arch>.deb. Its dependencies come from the shared libraries the programs
# link (dpkg-shlibdeps), plus what Qt loads at run time and the glyphs' font.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vesmo)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_VENDOR "Vesmo")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Stazione di lavoro astrologica / astrology workstation")
set(CPACK_PACKAGE_DESCRIPTION
    "Vesmo casts natal charts with its own ephemeris and Placidus houses, finds a birth place's
coordinates, time zone and summer time in its places database, and shows the chart as tables
and as single or double zodiac wheels. Around that stand transits, solar and lunar revolutions,
directions, an ingress search, chart archives with a query facility, printing and a bridge to
Astrolog. The user interface is Italian. vesmo-cli answers the same questions from a terminal.")
set(CPACK_RESOURCE_FILE_LICENSE ${PROJECT_SOURCE_DIR}/LICENSE)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "Vesmo developers <vesmo@localhost>")
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "qt6-qpa-plugins, fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-translations-l10n")
include(CPack)

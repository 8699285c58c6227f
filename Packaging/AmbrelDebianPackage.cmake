# The Debian package that CPack makes of the installation. Tools/package makes it reproducible.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_NAME ${package})
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${AMBREL_PACKAGE_MAINTAINER})
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${AMBREL_HOMEPAGE})
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)

# Both packages offer the same command: installing one removes the other.
set(CPACK_DEBIAN_PACKAGE_PROVIDES ambrel-recovery-app)
set(CPACK_DEBIAN_PACKAGE_CONFLICTS ambrel-recovery-app)
set(CPACK_DEBIAN_PACKAGE_REPLACES ambrel-recovery-app)

# The toolkit's plug-in for X11 comes with its library; the one for Wayland does not. Any font will do, these fit best.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-inter, fonts-noto-core, qt6-wayland, at-spi2-core")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "fonts-noto-cjk, xdg-desktop-portal")

set(description "\
Ambrel Recovery opens an encrypted Ambrel backup package, shows the snapshots
in it, and exports one of them into a new folder. All it needs is the package
and its passphrase or recovery key. The backup is never changed.")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "restores a photo library from an encrypted backup\n${description}")
if(NOT AMBREL_RECOVERY_ENGINE)
  set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "restores a photo library, with a stand-in engine\n${description}

This is a build for trying out and testing. It comes with a stand-in recovery
engine, which reads only backups of its own format: it cannot read the
backups of the product.")
endif()

include(CPack)

# The Debian package: cmake --build --preset release --target package
set(KELMORA_MAINTAINER "Kelmora maintainers <maintainers@kelmora.invalid>" CACHE STRING
    "Who answers for the package, as \"Name <address>\"")

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME kelmora)
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_CONTACT ${KELMORA_MAINTAINER})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "workbench for UV-Vis, NIR, infrared and Raman spectra")
set(CPACK_PACKAGE_DESCRIPTION
"Kelmora opens files of spectrometers (JCAMP-DX, SPC, SPA and SPG, OPUS, SP,
tables of text), cleans spectra with a repeatable chain of processing actions,
picks peaks, measures integrals, compares stacks of spectra and draws them as
figures fit for print. Everything can be undone, and a history tells what was
done.
.
The command line program zarnu does the same without a window, for batches,
pipelines and scripts.")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-liberation2 | fonts-dejavu-core")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# what only the package has: copyright, changelog, compressed manual pages
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian/finish.cmake)
include(CPack)

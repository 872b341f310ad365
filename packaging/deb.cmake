# The Debian package: in a built folder, run cpack.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_VENDOR "ZPS-RS232 developers")
set(CPACK_PACKAGE_CONTACT "ZPS-RS232 developers <maintainers@example.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_DESCRIPTION}")
set(CPACK_STRIP_FILES ON)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE ${ZPS_WEB_ADDRESS})
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The toolkit's own texts in Korean.
set(CPACK_DEBIAN_PACKAGE_DEPENDS qt6-translations-l10n)
# Korean text, and the program that opens web addresses.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "fonts-nanum, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"ZPS-RS232 finds a supply on the line, reads its ratings, and gives the person
at the bench one window for set values, switches and read-outs. Several
supplies can share one line. The user interface is Korean.

zps-demo is the same panel on a simulated supply, for trying and training.
zps-simulator plays such supplies on a pseudo-terminal. To open serial ports
a user has to be in the group dialout.")
include(CPack)

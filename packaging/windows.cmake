# Windows: what its programs carry within them, and the folder that people get, by cpack as an
# installer (for one user, no administrator needed).

# The words of the toolkit in Korean, and where it looks for words and plug-ins: within the program and
# beside it, nowhere else on the disk.
find_file(ZPS_TOOLKIT_WORDS qtbase_ko.qm PATHS /usr/share/qt6/translations REQUIRED
    NO_CMAKE_FIND_ROOT_PATH)
set_source_files_properties(${ZPS_TOOLKIT_WORDS} PROPERTIES QT_RESOURCE_ALIAS qtbase_ko.qm)
qt_add_resources(zps_app zps_words PREFIX /translations FILES ${ZPS_TOOLKIT_WORDS})
set_source_files_properties(windows/qt.conf PROPERTIES QT_RESOURCE_ALIAS qt.conf)
qt_add_resources(zps_app zps_places PREFIX /qt/etc FILES windows/qt.conf)

# Icon, version and manifest.
function(zps_describe ZPS_PROGRAM ZPS_DESCRIPTION)
    set(ZPS_MANIFEST ${CMAKE_CURRENT_BINARY_DIR}/${ZPS_PROGRAM}.manifest)
    configure_file(windows/program.manifest.in ${ZPS_MANIFEST} @ONLY)
    configure_file(windows/program.rc.in ${ZPS_PROGRAM}.rc @ONLY)
    target_sources(${ZPS_PROGRAM} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${ZPS_PROGRAM}.rc)
    set_property(SOURCE ${CMAKE_CURRENT_BINARY_DIR}/${ZPS_PROGRAM}.rc
        TARGET_DIRECTORY ${ZPS_PROGRAM} PROPERTY OBJECT_DEPENDS ${ZPS_MANIFEST})
endfunction()
zps_describe(zps-rs232 "ZPS-RS232 전원 장치 제어")
zps_describe(zps-demo "ZPS-RS232 (모의) - 전원 장치 없이 해 보기")

# The papers: the manual as a page with its pictures, licences, and what is linked in.
find_program(ZPS_PYTHON python3 PATHS /usr/bin NO_DEFAULT_PATH REQUIRED)  # Debian's: it has markdown
set(papers ${CMAKE_CURRENT_BINARY_DIR}/papers)
add_custom_target(zps-papers
    COMMAND ${CMAKE_COMMAND} -E rm -rf ${papers}
    COMMAND ${ZPS_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/windows/make_manual.py
        ${PROJECT_SOURCE_DIR}/docs/manual.ko.md ${papers}/manual
    COMMAND ${ZPS_PYTHON} ${CMAKE_CURRENT_SOURCE_DIR}/windows/make_licences.py
        ${PROJECT_VERSION} ${ZPS_WINDOWS_KIT}/licences ${papers}
    VERBATIM)

install(TARGETS zps-rs232 zps-demo RUNTIME DESTINATION .)
install(FILES windows/README.txt DESTINATION .)
install(FILES ${PROJECT_SOURCE_DIR}/LICENSE DESTINATION licences RENAME zps-rs232.txt)
install(DIRECTORY ${papers}/ DESTINATION .)

set(CPACK_GENERATOR NSIS)
set(CPACK_PACKAGE_NAME ${PROJECT_NAME})
set(CPACK_PACKAGE_FILE_NAME ${PROJECT_NAME}-${PROJECT_VERSION}-windows-x64-setup)
set(CPACK_PACKAGE_INSTALL_DIRECTORY ZPS-RS232)
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY ZPS-RS232)
set(CPACK_PACKAGE_VENDOR "ZPS-RS232 developers")
set(CPACK_PACKAGE_ICON ${CMAKE_CURRENT_SOURCE_DIR}/icons/zps-rs232.ico)
set(CPACK_STRIP_FILES ON)
set(CPACK_MODULE_PATH ${CMAKE_CURRENT_SOURCE_DIR}/windows)  # the installer's template
include(CPack)

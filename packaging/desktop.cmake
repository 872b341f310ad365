# How desktops find the panel: entry, icon, description for software centres, manual pages.
set(icons ${CMAKE_INSTALL_DATADIR}/icons/hicolor)
install(FILES ${drawing} DESTINATION ${icons}/scalable/apps)
foreach(size IN LISTS ZPS_ICON_SIZES)
    install(FILES icons/zps-rs232-${size}.png
        DESTINATION ${icons}/${size}x${size}/apps RENAME zps-rs232.png)
endforeach()

install(FILES zps-rs232.desktop zps-demo.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)

set(metainfo com.example.zps_rs232.metainfo.xml)
configure_file(${metainfo}.in ${metainfo} @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${metainfo}
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

# Manual pages and Debian's changelog are compressed without name and time, so that two packages of one
# state are equal.
find_program(ZPS_GZIP gzip REQUIRED)
mark_as_advanced(ZPS_GZIP)
function(zps_install_compressed source name destination)
    set(compressed ${CMAKE_CURRENT_BINARY_DIR}/${name}.gz)
    add_custom_command(OUTPUT ${compressed} DEPENDS ${source} VERBATIM
        COMMAND sh -c "\"$1\" -9n <\"$2\" >\"$3\"" sh ${ZPS_GZIP} ${source} ${compressed})
    set_property(DIRECTORY APPEND PROPERTY ZPS_COMPRESSED ${compressed})
    install(FILES ${compressed} DESTINATION ${destination})
endfunction()
foreach(page IN ITEMS zps-rs232.1 zps-demo.1 zps-simulator.1)
    zps_install_compressed(${CMAKE_CURRENT_SOURCE_DIR}/man/${page} ${page}
        ${CMAKE_INSTALL_MANDIR}/man1)
endforeach()
configure_file(changelog.in changelog @ONLY)
zps_install_compressed(${CMAKE_CURRENT_BINARY_DIR}/changelog changelog ${documents})
get_property(compressed DIRECTORY PROPERTY ZPS_COMPRESSED)
add_custom_target(zps-compressed ALL DEPENDS ${compressed})

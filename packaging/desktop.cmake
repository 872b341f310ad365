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

install(FILES man/zps-rs232.1 man/zps-demo.1 man/zps-simulator.1
    DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

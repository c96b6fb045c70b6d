# The destination of each file. A program finds its files relative to itself, in ../lib/glidemap, ../libexec/glidemap and
# ../share/glidemap. So these paths are literal, and the whole can be installed anywhere.

install(TARGETS glidemap glidemap-record glidemap-replay RUNTIME DESTINATION bin)
install(TARGETS glidemap_loaded_program glidemap_evdev_driver glidemap_replay_driver LIBRARY DESTINATION lib/glidemap)
install(PROGRAMS ${grant_access} DESTINATION libexec/glidemap)
install(TARGETS glidemap-fetch RUNTIME DESTINATION libexec/glidemap)
install(DIRECTORY ${CMAKE_BINARY_DIR}/share/glidemap/gnome-shell DESTINATION share/glidemap)

install(FILES udev/70-glidemap.rules DESTINATION lib/udev/rules.d)
install(FILES modules-load/glidemap.conf DESTINATION lib/modules-load.d)

# The prefix is known only during installation.
install(CODE "
    set(GLIDEMAP_GRANT_ACCESS \"\${CMAKE_INSTALL_PREFIX}/libexec/glidemap/glidemap-grant-access\")
    configure_file(\"${CMAKE_CURRENT_SOURCE_DIR}/polkit/org.glidemap.grant-access.policy.in\"
                   \"${CMAKE_CURRENT_BINARY_DIR}/installed/org.glidemap.grant-access.policy\" @ONLY)")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/installed/org.glidemap.grant-access.policy
        DESTINATION share/polkit-1/actions)

# KWin compares the whole path of a program with its entry's Exec line, and then permits what the entry requests.
install(CODE "
    file(READ \"${CMAKE_CURRENT_SOURCE_DIR}/desktop/org.glidemap.Glidemap.desktop\" entry)
    string(REPLACE \"\nExec=glidemap\n\" \"\nExec=\${CMAKE_INSTALL_PREFIX}/bin/glidemap\n\" entry \"\${entry}\")
    file(WRITE \"${CMAKE_CURRENT_BINARY_DIR}/installed/org.glidemap.Glidemap.desktop\" \"\${entry}\")")
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/installed/org.glidemap.Glidemap.desktop
        DESTINATION share/applications)
install(FILES ${metainfo} DESTINATION share/metainfo)

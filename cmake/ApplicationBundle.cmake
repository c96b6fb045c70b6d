# The macOS application bundle: its name and its property list.
set(GLIDEMAP_BUNDLE_NAME Glidemap)
set(GLIDEMAP_BUNDLE_ICON Glidemap.icns)

# write_bundle_properties(FILE)
function(write_bundle_properties file)
    configure_file(${CMAKE_SOURCE_DIR}/packaging/macos/Info.plist.in ${file} @ONLY)
endfunction()

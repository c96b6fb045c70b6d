# The Linux build uses the same headers and has already checked their version.
set(PACKAGE_VERSION ${PACKAGE_FIND_VERSION})
set(PACKAGE_VERSION_COMPATIBLE TRUE)

# The build for Linux has already checked the version of the same headers.
set(PACKAGE_VERSION ${PACKAGE_FIND_VERSION})
set(PACKAGE_VERSION_COMPATIBLE TRUE)

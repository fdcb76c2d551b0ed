# Part of the installation script: says what went where and how to find it there.
set(prefix $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX})
message(STATUS "Installed to ${prefix}:
  ${BINDIR}: the programs
  ${LIBDIR}: the libraries, with their CMake package in cmake/DigitizerGeneric
  ${INCLUDEDIR}/DigitizerGeneric: the headers
  ${DATADIR}/DigitizerGeneric: the descriptions of tablets
  ${MANDIR}/man1: the manual pages
To use it from there:
  export PATH=\"${prefix}/${BINDIR}:$PATH\"
  export CMAKE_PREFIX_PATH=\"${prefix}\"")

# Part of the installation script: says where everything was installed and how to use it from there.
set(prefix $ENV{DESTDIR}${CMAKE_INSTALL_PREFIX})
message(STATUS "Installed to ${prefix}:
  ${BINDIR}: the programs
  ${LIBDIR}: the libraries, for CMake in cmake/DigitizerGeneric, for pkg-config in pkgconfig
  ${INCLUDEDIR}/DigitizerGeneric: the headers
  ${DATADIR}/DigitizerGeneric: tablet descriptions in Plugins, example hosts and files in examples
  ${MANDIR}/man1: the manual pages
  ${DOCDIR}: the licence
To use it from there:
  export PATH=\"${prefix}/${BINDIR}:$PATH\"
  export CMAKE_PREFIX_PATH=\"${prefix}\"
  export PKG_CONFIG_PATH=\"${prefix}/${LIBDIR}/pkgconfig\"
  export LD_LIBRARY_PATH=\"${prefix}/${LIBDIR}\"  # for hosts that are linked through pkg-config"
)

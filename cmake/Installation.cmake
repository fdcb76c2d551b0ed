# The CMake package DigitizerGeneric: the shared libraries and the public headers, in the same tree of
# folders as here; the programs and the shipped descriptions where the programs look for them.
include(CMakePackageConfigHelpers)

set(libraries DigitizerGeneric MavCore QextSerialPort)
get_property(programs GLOBAL PROPERTY digitizer_programs)
get_property(manual_pages GLOBAL PROPERTY digitizer_manual_pages)

# Builds only what is installed.
add_custom_target(installation)
list(TRANSFORM programs APPEND -manual OUTPUT_VARIABLE manuals)
add_dependencies(installation ${libraries} ${manuals})

# After a build of other targets, files may be missing. This is checked before anything is copied, so
# that an installation is never incomplete.
set(built_files ${manual_pages})
foreach(target IN LISTS libraries programs)
  list(APPEND built_files $<TARGET_FILE:${target}>)
endforeach()
install(CODE "set(built_files \"${built_files}\")\nset(build_directory \"${PROJECT_BINARY_DIR}\")")
install(SCRIPT cmake/InstallationCheck.cmake)

set(public_headers
  DigitizerGeneric/ConvertedCommand.h
  DigitizerGeneric/DigitizerGenericExport.h
  DigitizerGeneric/Digitizer/DescribedDriver.h
  DigitizerGeneric/Digitizer/DescriptionFolder.h
  DigitizerGeneric/Digitizer/DigitalReport.h
  DigitizerGeneric/Digitizer/Digitizer.h
  DigitizerGeneric/Digitizer/DigitizerArgument.h
  DigitizerGeneric/Digitizer/InputEvents.h
  DigitizerGeneric/Digitizer/SelectedDevice.h
  DigitizerGeneric/Digitizer/SerialSettings.h
  DigitizerGeneric/File_Digital/ConvertedCommandInterpreter.h
  DigitizerGeneric/File_Digital/DigipenDataConverter.h
  DigitizerGeneric/File_Digital/DigipenFileDigitalization.h
  DigitizerGeneric/File_Digital/DigipenState.h
  DigitizerGeneric/File_Digital/DigipenState_4ex.h
  DigitizerGeneric/File_Digital/DigipenStringAnalyzer.h
  DigitizerGeneric/File_Digital/FatalError.h
  MavCore/MavApplication.h
  MavCore/MavCoreExport.h
  MavCore/MavInit.h
  MavGeo/GeoPoint2D.h
  QextSerialPort/QextSerialPortExport.h
  QextSerialPort/qextserialport.h)
foreach(header IN LISTS public_headers)
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES Source/${header} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/DigitizerGeneric/${folder})
endforeach()

install(FILES ${PROJECT_BINARY_DIR}/include/DigitizerGeneric/DigitizerGenericVersion.h
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/DigitizerGeneric/DigitizerGeneric)

install(TARGETS ${libraries} MavGeo EXPORT DigitizerGenericTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(TARGETS ${programs} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${manual_pages} DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
install(DIRECTORY Plugins DESTINATION ${CMAKE_INSTALL_DATADIR}/DigitizerGeneric)
install(DIRECTORY Examples/ DESTINATION ${CMAKE_INSTALL_DATADIR}/DigitizerGeneric/examples)
install(FILES LICENSE DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(package_directory ${CMAKE_INSTALL_LIBDIR}/cmake/DigitizerGeneric)
install(EXPORT DigitizerGenericTargets NAMESPACE MavSystem:: DESTINATION ${package_directory})
configure_package_config_file(cmake/DigitizerGenericConfig.cmake.in
  ${PROJECT_BINARY_DIR}/DigitizerGenericConfig.cmake INSTALL_DESTINATION ${package_directory})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/DigitizerGenericConfigVersion.cmake
                                 COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/DigitizerGenericConfig.cmake
              ${PROJECT_BINARY_DIR}/DigitizerGenericConfigVersion.cmake DESTINATION ${package_directory})

# The same for hosts that are not built with CMake. The paths are relative to the file, so that the
# installation folder can be moved.
file(RELATIVE_PATH include_directory
     ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_FULL_INCLUDEDIR})
list(TRANSFORM libraries PREPEND -l OUTPUT_VARIABLE link_options)
list(JOIN link_options " " link_options)
configure_file(cmake/DigitizerGeneric.pc.in ${PROJECT_BINARY_DIR}/DigitizerGeneric.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/DigitizerGeneric.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

foreach(folder BINDIR LIBDIR INCLUDEDIR DATADIR MANDIR DOCDIR)
  install(CODE "set(${folder} \"${CMAKE_INSTALL_${folder}}\")")
endforeach()
install(SCRIPT cmake/InstallationSummary.cmake)

# What is installed, in four components: runtime, development, tools and documents. The tools' own rules stand
# beside them.
include(CMakePackageConfigHelpers)

install(TARGETS kova EXPORT kova
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development
  FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development
  FILE_SET version DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} COMPONENT development)

# The toolchain's runtime libraries: exceptions cross our boundary, so everybody shares them. Windows looks for
# them beside the program.
if(MINGW)
  foreach(name libstdc++-6.dll libgcc_s_dw2-1.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name}
      OUTPUT_VARIABLE runtime_library OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    file(REAL_PATH ${runtime_library} runtime_library)
    install(FILES ${runtime_library} DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
  endforeach()
  # Their terms go with them.
  foreach(package gcc-mingw-w64-i686-posix-runtime mingw-w64-i686-dev)
    install(FILES /usr/share/doc/${package}/copyright RENAME ${package}.txt
      DESTINATION ${CMAKE_INSTALL_DOCDIR}/licences COMPONENT documents OPTIONAL)
  endforeach()
endif()

# For find_package.
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kova)
configure_package_config_file(cmake/kova-config.cmake.in ${PROJECT_BINARY_DIR}/kova-config.cmake
  INSTALL_DESTINATION ${package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kova-config-version.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/kova-config.cmake ${PROJECT_BINARY_DIR}/kova-config-version.cmake
  DESTINATION ${package_dir} COMPONENT development)
install(EXPORT kova NAMESPACE kova:: FILE kova-targets.cmake DESTINATION ${package_dir} COMPONENT development)
if(TARGET kova-translate)
  install(EXPORT kova-tools NAMESPACE kova:: FILE kova-tools-targets.cmake DESTINATION ${package_dir} COMPONENT tools)
endif()

# For pkg-config. It finds everything from its own place, so that the installed tree may be moved.
string(REGEX REPLACE "[^/]+" ".." prefix_from_pc ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
get_target_property(compile_options kova INTERFACE_COMPILE_OPTIONS)
list(JOIN compile_options " " compile_options)
configure_file(cmake/kova.pc.in ${PROJECT_BINARY_DIR}/kova.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/kova.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)

file(GLOB documents CONFIGURE_DEPENDS README.md CHANGELOG* CONTRIBUTING* COPYING* LICEN[CS]E* NOTICE*)
install(FILES ${documents} DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR} COMPONENT documents)

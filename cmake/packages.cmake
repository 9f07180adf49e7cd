# Debian packages, one for each component, and a zip with all of them for Windows.
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_PACKAGE_VENDOR "KOVA developers")
set(CPACK_PACKAGE_CONTACT "KOVA developers <kova@example.org>")
set(CPACK_COMPONENTS_ALL runtime development tools documents)
set(CPACK_STRIP_FILES ON)

if(WIN32)
  set(CPACK_GENERATOR ZIP)
  set(CPACK_SYSTEM_NAME win32)
else()
  set(CPACK_GENERATOR DEB)
  set(CPACK_DEB_COMPONENT_INSTALL ON)
  set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
endif()

# Under the project's own description.
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "This package has the shared library.")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "This package has what programs are built with: headers, CMake package, pkg-config file.")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION "This package has kova-translate, a translator built on the library.")
set(CPACK_COMPONENT_DOCUMENTS_DESCRIPTION "This package has the documents.")

get_target_property(soversion kova SOVERSION)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME libkova${soversion})
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libkova-dev)
set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME kova-tools)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_NAME libkova-doc)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_SECTION doc)
set(CPACK_DEBIAN_DOCUMENTS_PACKAGE_ARCHITECTURE all)

# What the packages need of the system is read from their programs and libraries; the package of the library
# itself is not known to the system, so what needs it says so.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_LIBRARY_OUTPUT_DIRECTORY})
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

include(CPack)

# The three Debian packages that cpack makes of a build. scripts/package makes them as they are shipped.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME pelk-fcf-generator)
set(CPACK_PACKAGE_VENDOR "ZORV")
set(CPACK_PACKAGE_CONTACT "ZORV <support@zorv.example>")
# Each package has a summary of its own, on the first line of its description.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_CURRENT_LIST_DIR}/finish.cmake")

# A package is a group of components that has its name.
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL plugin sdk host pelk-fcf)
set(CPACK_COMPONENT_PLUGIN_GROUP pelk-fcf-plugin)
set(CPACK_COMPONENT_SDK_GROUP pelk-host)
set(CPACK_COMPONENT_HOST_GROUP pelk-host)
set(CPACK_COMPONENT_PELK-FCF_GROUP pelk-fcf)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SOURCE pelk-fcf-generator)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "https://zorv.example/")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# The SDK's libraries are in another of these packages; without it dpkg would not find them.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")

set(CPACK_DEBIAN_PELK-FCF-PLUGIN_PACKAGE_NAME pelk-fcf-plugin)
set(CPACK_DEBIAN_PELK-FCF-PLUGIN_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PELK-FCF-PLUGIN_PACKAGE_DEPENDS "pelk-host (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_PELK-FCF-PLUGIN_PACKAGE_RECOMMENDS "pelk-fcf")
set(CPACK_DEBIAN_PELK-FCF-PLUGIN_DESCRIPTION
"FCF generator and configuration packages for designs
The plug-in makes flash images for the Pelk radar signal processor from
the binaries of firmware designs. An image is one header page, which says
who built what for which flash slot, and the binary behind it.

It also adds configuration packages to the host's archive dialog.")

set(CPACK_DEBIAN_PELK-HOST_PACKAGE_NAME pelk-host)
set(CPACK_DEBIAN_PELK-HOST_PACKAGE_SECTION electronics)
# The toolkit's catalogue has the standard buttons, such as Cancel, in the user's language.
if(ZORV_QT EQUAL 6)
    set(CPACK_DEBIAN_PELK-HOST_PACKAGE_DEPENDS "qt6-translations-l10n")
else()
    set(CPACK_DEBIAN_PELK-HOST_PACKAGE_DEPENDS "qttranslations5-l10n")
endif()
set(CPACK_DEBIAN_PELK-HOST_PACKAGE_RECOMMENDS "pelk-fcf, pelk-fcf-plugin")
set(CPACK_DEBIAN_PELK-HOST_PACKAGE_SUGGESTS "cmake, g++, qtbase5-dev")
set(CPACK_DEBIAN_PELK-HOST_DESCRIPTION
"design host for firmware plug-ins, and its SDK
The host keeps the files, versions and properties of firmware designs for
the Pelk radar signal processor. What can be done with a design comes from
plug-ins.

The headers, libraries and CMake files to build plug-ins with are included.
To use them, install the suggested packages.")

set(CPACK_DEBIAN_PELK-FCF_PACKAGE_NAME pelk-fcf)
set(CPACK_DEBIAN_PELK-FCF_PACKAGE_SECTION electronics)
set(CPACK_DEBIAN_PELK-FCF_DESCRIPTION
"command-line tool for FCF flash images
Makes flash images for the Pelk radar signal processor from FPGA binaries,
lists and checks them, and takes the binary out again. For use in build
pipelines: equal inputs give equal images.

It writes the same bytes as the generator's window.")

include(CPack)

# Makes HostSdk::Framework from the framework installed in QTILITIES_ROOT: a folder include/ with a
# folder for each module, and the framework's libraries, one or several, in lib/.

file(GLOB qtilities_includes LIST_DIRECTORIES true "${QTILITIES_ROOT}/include/Qtilities*")
file(GLOB_RECURSE qtilities_libraries
    "${QTILITIES_ROOT}/lib/libQtilities*.so" "${QTILITIES_ROOT}/lib/*Qtilities*.lib")
foreach(module QtilitiesCore QtilitiesCoreGui QtilitiesExtensionSystem QtilitiesLogging)
    if(NOT IS_DIRECTORY "${QTILITIES_ROOT}/include/${module}")
        message(FATAL_ERROR "QTILITIES_ROOT: no folder ${QTILITIES_ROOT}/include/${module}")
    endif()
endforeach()
if(NOT qtilities_libraries)
    message(FATAL_ERROR "QTILITIES_ROOT: no framework library in ${QTILITIES_ROOT}/lib")
endif()

if(NOT TARGET HostSdk::Framework)
    add_library(HostSdk::Framework INTERFACE IMPORTED)
    set_target_properties(HostSdk::Framework PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${QTILITIES_ROOT}/include;${qtilities_includes}"
        INTERFACE_LINK_LIBRARIES "${qtilities_libraries};Qt5::Core;Qt5::Gui;Qt5::Widgets")
endif()

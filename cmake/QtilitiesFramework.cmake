# Makes HostSdk::Framework from the framework installed in QTILITIES_ROOT: a folder include/ with a
# folder for each module, and the framework's libraries in lib/, bin/ or a folder in lib/, one or
# several, with or without a version in their names. What uses it is compiled with
# QTILITIES_DEFINITIONS.

foreach(module QtilitiesCore QtilitiesCoreGui QtilitiesExtensionSystem QtilitiesLogging)
    if(NOT IS_DIRECTORY "${QTILITIES_ROOT}/include/${module}")
        message(FATAL_ERROR "QTILITIES_ROOT: no folder ${QTILITIES_ROOT}/include/${module}")
    endif()
endforeach()

set(qtilities_libraries "")
foreach(folder lib bin lib/*)
    if(NOT qtilities_libraries)
        file(GLOB qtilities_libraries
            "${QTILITIES_ROOT}/${folder}/libQtilities*.so"
            "${QTILITIES_ROOT}/${folder}/Qtilities*.lib")
    endif()
endforeach()
if(NOT qtilities_libraries)
    message(FATAL_ERROR
        "QTILITIES_ROOT: no framework library in ${QTILITIES_ROOT}/lib or ${QTILITIES_ROOT}/bin")
endif()

# Where programs find them at run time.
list(GET qtilities_libraries 0 first)
get_filename_component(QTILITIES_LIBRARY_DIR "${first}" DIRECTORY)

if(NOT TARGET HostSdk::Framework)
    file(GLOB qtilities_modules LIST_DIRECTORIES true "${QTILITIES_ROOT}/include/Qtilities*")
    add_library(HostSdk::Framework INTERFACE IMPORTED)
    set_target_properties(HostSdk::Framework PROPERTIES
        INTERFACE_INCLUDE_DIRECTORIES "${QTILITIES_ROOT}/include;${qtilities_modules}"
        INTERFACE_COMPILE_DEFINITIONS "${QTILITIES_DEFINITIONS}"
        INTERFACE_LINK_LIBRARIES "${qtilities_libraries};${QT_WIDGETS}")
endif()

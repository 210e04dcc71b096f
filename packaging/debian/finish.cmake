# Run by cpack between the installation into a folder for each package and the packing.
file(GLOB trees LIST_DIRECTORIES true "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/*")
execute_process(COMMAND "${CMAKE_CURRENT_LIST_DIR}/finish" ${trees} COMMAND_ERROR_IS_FATAL ANY)

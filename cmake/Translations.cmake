# Compiles the catalogues of translations/ into what shows their texts. A Qt 4.8 without its lrelease gets
# no catalogue, and its texts stay English.

option(ZORV_PSEUDO_TRANSLATION "Longer texts in brackets in place of German, to look for cut labels" OFF)

if(ZORV_QT GREATER_EQUAL 5)
    find_package(Qt${ZORV_QT}LinguistTools REQUIRED)
    set(zorv_lrelease Qt${ZORV_QT}::lrelease)
else()
    set(zorv_lrelease "${QT_LRELEASE_EXECUTABLE}")
endif()

# Compiles translations/NAME_de.ts to the file OUTPUT when TARGET is built.
function(zorv_compile_catalogue target name output)
    set(source "${PROJECT_SOURCE_DIR}/translations/${name}_de.ts")
    if(ZORV_PSEUDO_TRANSLATION)
        set(longer "${CMAKE_CURRENT_BINARY_DIR}/${name}_pseudo.ts")
        set(script "${PROJECT_SOURCE_DIR}/cmake/pseudo-translation")
        add_custom_command(
            OUTPUT "${longer}"
            COMMAND "${script}" "${source}" "${longer}"
            DEPENDS "${source}" "${script}"
            VERBATIM)
        set(source "${longer}")
    endif()
    add_custom_command(
        OUTPUT "${output}"
        COMMAND ${zorv_lrelease} -silent "${source}" -qm "${output}"
        DEPENDS "${source}"
        COMMENT "Compiling the catalogue ${name}_de"
        VERBATIM)
    target_sources(${target} PRIVATE "${output}")
endfunction()

# Embeds translations/NAME_de.ts in the program TARGET, as ":/translations/NAME_de.qm".
function(zorv_embed_catalogue target name)
    if(NOT zorv_lrelease)
        return()
    endif()
    zorv_compile_catalogue(${target} ${name} "${CMAKE_CURRENT_BINARY_DIR}/${name}_de.qm")
    set(resources "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.qrc")
    file(CONFIGURE OUTPUT "${resources}" CONTENT
"<RCC><qresource prefix=\"/translations\"><file>@name@_de.qm</file></qresource></RCC>\n" @ONLY)
    target_sources(${target} PRIVATE "${resources}")
    set_target_properties(${target} PROPERTIES AUTORCC ON)
endfunction()

# Puts translations/NAME_de.ts beside the plug-in TARGET, as TARGET_de.qm, and installs it with it.
function(zorv_place_catalogue target name)
    if(NOT zorv_lrelease)
        return()
    endif()
    get_target_property(folder ${target} LIBRARY_OUTPUT_DIRECTORY)
    zorv_compile_catalogue(${target} ${name} "${folder}/${target}_de.qm")
    install(FILES "${folder}/${target}_de.qm"
        DESTINATION "${ZORV_PLUGIN_INSTALL_DIR}" COMPONENT plugin)
endfunction()

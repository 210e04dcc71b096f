# Compiles the catalogues of translations/ into what shows their texts. A Qt 4.8 without its lrelease gets
# no catalogue, and its texts stay English.

option(ZORV_PSEUDO_TRANSLATION "Longer texts in brackets in place of German, to look for cut labels" OFF)

if(ZORV_QT GREATER_EQUAL 5)
    find_package(Qt${ZORV_QT}LinguistTools REQUIRED)
    set(zorv_lrelease Qt${ZORV_QT}::lrelease)
else()
    set(zorv_lrelease "${QT_LRELEASE_EXECUTABLE}")
endif()

# Embeds translations/NAME_de.ts in the program or plug-in TARGET, as ":/translations/NAME_de.qm".
function(zorv_embed_catalogue target name)
    if(NOT zorv_lrelease)
        return()
    endif()
    set(source "${PROJECT_SOURCE_DIR}/translations/${name}_de.ts")
    set(catalogue "${CMAKE_CURRENT_BINARY_DIR}/${name}_de.qm")
    set(resources "${CMAKE_CURRENT_BINARY_DIR}/${name}_translations.qrc")
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
        OUTPUT "${catalogue}"
        COMMAND ${zorv_lrelease} -silent "${source}" -qm "${catalogue}"
        DEPENDS "${source}"
        COMMENT "Compiling the catalogue ${name}_de"
        VERBATIM)
    file(CONFIGURE OUTPUT "${resources}" CONTENT
"<RCC><qresource prefix=\"/translations\"><file>@name@_de.qm</file></qresource></RCC>\n" @ONLY)
    target_sources(${target} PRIVATE "${catalogue}" "${resources}")
    set_target_properties(${target} PROPERTIES AUTORCC ON)
endfunction()

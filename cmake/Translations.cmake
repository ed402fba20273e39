# Has <target> carry the catalogues translations/<name>_<language>.ts as resources in
# ":/datachunk/texts". In a static library they need Q_INIT_RESOURCE(<name>_texts).
function(datachunk_translations target name)
  set(qrc ${CMAKE_CURRENT_BINARY_DIR}/${name}_texts.qrc)
  set(files "")
  foreach(language de en fr)
    set(catalogue ${PROJECT_SOURCE_DIR}/translations/${name}_${language}.ts)
    if(NOT EXISTS ${catalogue})
      continue()
    endif()
    set(texts ${CMAKE_CURRENT_BINARY_DIR}/${name}_${language}.qm)
    add_custom_command(OUTPUT ${texts} DEPENDS ${catalogue} VERBATIM
                       COMMAND Qt${DATACHUNK_QT}::lrelease -silent ${catalogue} -qm ${texts})
    string(APPEND files "<file>${name}_${language}.qm</file>")
  endforeach()
  file(CONFIGURE OUTPUT ${qrc} @ONLY
       CONTENT "<RCC><qresource prefix=\"/datachunk/texts\">${files}</qresource></RCC>\n")
  qt_add_resources(resources ${qrc})
  target_sources(${target} PRIVATE ${resources})
endfunction()

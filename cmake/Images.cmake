# Drawings (SVG) become pictures of one and two pixels a point in a resource of the target:
#   yrex_images(TARGET images|cursors SIDE NAME...)
# images/NAME.svg gives ":/images/NAME.png", and stands beside it as the drawing, from which icons of any size are made.
function(yrex_images target folder side)
  set(out ${CMAKE_CURRENT_BINARY_DIR}/pictures)
  set(qrc ${out}/${target}_${folder}.qrc)
  set(drawings "")
  set(pictures "")
  set(entries "")
  foreach(name ${ARGN})
    list(APPEND drawings ${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${name}.svg)
    foreach(picture ${folder}/${name}.png ${folder}/${name}@2x.png)
      list(APPEND pictures ${out}/${picture})
      string(APPEND entries "    <file>${picture}</file>\n")
    endforeach()
    if(folder STREQUAL "images")
      string(APPEND entries "    <file alias=\"${folder}/${name}.svg\">${CMAKE_CURRENT_SOURCE_DIR}/${folder}/${name}.svg</file>\n")
    endif()
  endforeach()
  file(CONFIGURE OUTPUT ${qrc} CONTENT "<RCC>\n  <qresource prefix=\"/\">\n${entries}  </qresource>\n</RCC>\n" @ONLY)
  add_custom_command(OUTPUT ${pictures}
    COMMAND renderimages ${out}/${folder} ${side} ${drawings}
    DEPENDS renderimages ${drawings}
    COMMENT "Rendering ${folder} of ${target}" VERBATIM)
  set(code ${out}/qrc_${target}_${folder}.cpp)
  add_custom_command(OUTPUT ${code}
    COMMAND Qt5::rcc --name ${target}_${folder} ${qrc} -o ${code}
    DEPENDS ${qrc} ${pictures} ${drawings} VERBATIM)
  # a library of its own, since only its own folder knows how the code comes about
  add_library(${target}_${folder} OBJECT ${code})
  set_target_properties(${target}_${folder} PROPERTIES AUTOMOC OFF AUTORCC OFF)
  target_sources(${target} PRIVATE $<TARGET_OBJECTS:${target}_${folder}>)
endfunction()

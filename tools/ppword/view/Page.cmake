# The page of `ppword view`: the files of page/, and those of the library that draws (the Debian package
# libjs-three), as they are when the program is built. Without the library the program has no page.
set(PPWORD_THREE_FOLDER /usr/share/javascript/three CACHE PATH "The library that draws in pages")
set(PPWORD_THREE_LICENCE /usr/share/doc/libjs-three/copyright CACHE FILEPATH "Its licence")

set(three_scripts ${PPWORD_THREE_FOLDER}/three.min.js)
foreach(name controls/OrbitControls lines/LineSegmentsGeometry lines/LineMaterial lines/LineSegments2)
  list(APPEND three_scripts ${PPWORD_THREE_FOLDER}/examples/js/${name}.js)
endforeach()
foreach(file IN LISTS three_scripts PPWORD_THREE_LICENCE)
  if(NOT EXISTS ${file})
    message(STATUS "ppword view draws nothing: ${file} is missing (Debian package libjs-three)")
    set(three_scripts)
    break()
  endif()
endforeach()

# Adds the page to a program, with these scripts of the library; without them it draws nothing.
function(ppword_add_page target library)
  set(view_folder ${PROJECT_SOURCE_DIR}/tools/ppword/view)
  set(page ${view_folder}/page)
  set(scripts)
  set(licence)
  if(library)
    set(scripts ${library})
    set(licence ${PPWORD_THREE_LICENCE})
    foreach(name columns passes path colours scene list details main)
      list(APPEND scripts ${page}/${name}.js)
    endforeach()
  endif()
  set(output ${CMAKE_CURRENT_BINARY_DIR}/${target}ViewFiles.cpp)
  list(JOIN scripts , joined)
  add_custom_command(
    OUTPUT ${output}
    COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DPAGE=${page}/page.html -DSTYLE=${page}/style.css
            -DLICENCE=${licence} -DSCRIPTS=${joined} -P ${view_folder}/EmbedPage.cmake
    DEPENDS ${view_folder}/EmbedPage.cmake ${page}/page.html ${page}/style.css ${licence} ${scripts}
    VERBATIM)
  target_sources(${target} PRIVATE ${output})
endfunction()

# Writes a C++ source with the files of the page, and their digests, as Page.h declares them.
#
#   cmake -DOUTPUT=… -DPAGE=… -DSTYLE=… -DSCRIPTS=… -DLICENCE=… -P EmbedPage.cmake
#
# SCRIPTS are separated by commas; with none the program draws nothing, and LICENCE is empty. A text that
# could end its own block in the page is refused.
set(source "#pragma GCC diagnostic ignored \"-Woverlength-strings\"\n#include \"tools/ppword/view/Page.h\"\n")

# Adds a file to the source as the array `name`, and sets `name` to what initialises a ViewFile.
function(embed name file)
  set(text "")
  if(file)
    file(READ "${file}" text)
  endif()
  string(TOLOWER "${text}" lower)
  foreach(ending "</script" "</style" "<!--" "\r" ")EMBEDDED\"")
    string(FIND "${lower}" "${ending}" place)
    if(NOT place EQUAL -1)
      message(FATAL_ERROR "${file} has ${ending}, which would end its block in the page")
    endif()
  endforeach()
  string(SHA256 digest "${text}")
  string(APPEND source "\nstatic constexpr char ${name}[] = R\"EMBEDDED(${text})EMBEDDED\";\n")
  set(source "${source}" PARENT_SCOPE)
  set(${name} "{{${name}, sizeof ${name} - 1}, \"${digest}\"}" PARENT_SCOPE)
endfunction()

embed(kPage "${PAGE}")
embed(kStyle "${STYLE}")
embed(kLicence "${LICENCE}")
string(REPLACE "," ";" scripts "${SCRIPTS}")
set(rows "")
set(count 0)
foreach(script IN LISTS scripts)
  math(EXPR count "${count} + 1")
  embed(kScript${count} "${script}")
  string(APPEND rows "    ${kScript${count}},\n")
endforeach()

string(APPEND source "\nViewFile viewPage() { return ${kPage}; }\n")
string(APPEND source "ViewFile viewStyle() { return ${kStyle}; }\n")
string(APPEND source "ViewFile viewLicence() { return ${kLicence}; }\n")
if(rows)
  string(APPEND source "static constexpr ViewFile kScripts[] = {\n${rows}};\n")
  string(APPEND source "std::span<const ViewFile> viewScripts() { return kScripts; }\n")
else()
  string(APPEND source "std::span<const ViewFile> viewScripts() { return {}; }\n")
endif()
file(WRITE "${OUTPUT}" "${source}")

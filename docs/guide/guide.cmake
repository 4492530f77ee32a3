# guide.cmake: the illustrated guide, HTML pages that the program shows with F1, made from docs/ by pandoc.
#
# The chapters in their order, by their names in docs/guide/. Each becomes a page of its own, with a way to the one
# before and after it. Formulas are MathML; the pages hold no program and load nothing from elsewhere.
set(chapters README tour windows cleaning averaging stations formulas ../files ../scripts ../batch)

set(docs ${PROJECT_SOURCE_DIR}/docs)
set(pages ${docs}/guide/pages)
set(guide ${PROJECT_BINARY_DIR}/share/doc/quillan/guide)

find_program(PANDOC pandoc)
if(NOT PANDOC)
  message(STATUS "pandoc is missing: the guide is not made")
  add_custom_target(guide)
  return()
endif()

# The page of a chapter, and its first heading, which is its title.
function(about_chapter chapter page title)
  get_filename_component(name ${chapter} NAME)
  string(REPLACE README index name ${name})
  set(${page} ${name}.html PARENT_SCOPE)
  file(STRINGS ${docs}/guide/${chapter}.md heading REGEX "^# " LIMIT_COUNT 1)
  string(REGEX REPLACE "^# " "" heading "${heading}")
  set(${title} "${heading}" PARENT_SCOPE)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${docs}/guide/${chapter}.md)
endfunction()

list(LENGTH chapters count)
math(EXPR last "${count} - 1")
set(made)
foreach(i RANGE ${last})
  list(GET chapters ${i} chapter)
  about_chapter(${chapter} page title)
  set(ways)
  if(i GREATER 0)
    math(EXPR j "${i} - 1")
    list(GET chapters ${j} other)
    about_chapter(${other} other_page other_title)
    list(APPEND ways -V previous=${other_page} -V "previous-title=${other_title}")
  endif()
  if(i LESS last)
    math(EXPR j "${i} + 1")
    list(GET chapters ${j} other)
    about_chapter(${other} other_page other_title)
    list(APPEND ways -V next=${other_page} -V "next-title=${other_title}")
  endif()
  # A "$" begins a line of a data file everywhere but among formulas.
  set(format gfm)
  set(contents --toc --toc-depth=3)
  if(chapter STREQUAL formulas)
    set(format gfm+tex_math_dollars)
  elseif(chapter STREQUAL README)
    set(contents)
  endif()
  add_custom_command(OUTPUT ${guide}/${page}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${guide}
    COMMAND ${PANDOC} --from=${format} --to=html5 --mathml --fail-if-warnings --template=${pages}/page.html
      --lua-filter=${pages}/links.lua ${contents} ${ways} --output=${guide}/${page} ${docs}/guide/${chapter}.md
    DEPENDS ${docs}/guide/${chapter}.md ${pages}/page.html ${pages}/links.lua
    VERBATIM)
  list(APPEND made ${guide}/${page})
endforeach()

file(GLOB pictures CONFIGURE_DEPENDS ${docs}/pictures/*.png)
foreach(file ${pictures} ${pages}/guide.css)
  get_filename_component(name ${file} NAME)
  set(place ${guide})
  if(name MATCHES "png$")
    set(place ${guide}/pictures)
  endif()
  add_custom_command(OUTPUT ${place}/${name} COMMAND ${CMAKE_COMMAND} -E copy ${file} ${place}/${name} DEPENDS ${file} VERBATIM)
  list(APPEND made ${place}/${name})
endforeach()
add_custom_target(guide ALL DEPENDS ${made})
install(DIRECTORY ${guide} DESTINATION ${CMAKE_INSTALL_DOCDIR})

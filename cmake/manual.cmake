# The manual: HTML pages from docs/manual, beside the program.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
find_program(SSQ_CMARK cmark-gfm REQUIRED)
set(SSQ_MANUAL ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/manual)
file(GLOB SSQ_MANUAL_SOURCES CONFIGURE_DEPENDS
     ${CMAKE_SOURCE_DIR}/docs/manual/*.md ${CMAKE_SOURCE_DIR}/docs/manual/pictures/*.png)
set(SSQ_MANUAL_SCRIPT ${CMAKE_SOURCE_DIR}/docs/manual/make_html.py)

add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/manual.stamp
    COMMAND ${Python3_EXECUTABLE} ${SSQ_MANUAL_SCRIPT} ${SSQ_PRODUCT_NAME} ${SSQ_MANUAL}
            ${CMAKE_BINARY_DIR}/manual.stamp
    DEPENDS ${SSQ_MANUAL_SCRIPT} ${CMAKE_SOURCE_DIR}/docs/manual/style.css ${SSQ_MANUAL_SOURCES}
    VERBATIM)
add_custom_target(manual ALL DEPENDS ${CMAKE_BINARY_DIR}/manual.stamp)
add_dependencies(ssq manual)

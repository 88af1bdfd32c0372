# The delivered database. A pristine copy is made in delivered/; the one beside the program is
# laid down only where none stands, so that a user's data is never overwritten. The same holds for
# the draws as text, which the gateway serves.
set(SSQ_DELIVERED_DATABASE ${CMAKE_BINARY_DIR}/delivered/ssq.mdb)
set(SSQ_DATA_SOURCES ${CMAKE_SOURCE_DIR}/data/schema.sql ${CMAKE_SOURCE_DIR}/data/draws.csv)

add_custom_command(
    OUTPUT ${SSQ_DELIVERED_DATABASE}
    COMMAND ${CMAKE_COMMAND} -E rm -f ${SSQ_DELIVERED_DATABASE}
    COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/delivered
    COMMAND ssq_make_database ${SSQ_DATA_SOURCES} ${SSQ_DELIVERED_DATABASE}
    DEPENDS ssq_make_database ${SSQ_DATA_SOURCES}
    VERBATIM)

add_custom_target(delivered_database ALL
    COMMAND ${CMAKE_COMMAND}
            -DFROM=${SSQ_DELIVERED_DATABASE}
            -DTO=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/data/ssq.mdb
            -P ${CMAKE_SOURCE_DIR}/cmake/CopyIfMissing.cmake
    COMMAND ${CMAKE_COMMAND}
            -DFROM=${CMAKE_SOURCE_DIR}/data/draws.csv
            -DTO=${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/data/draws.csv
            -P ${CMAKE_SOURCE_DIR}/cmake/CopyIfMissing.cmake
    DEPENDS ${SSQ_DELIVERED_DATABASE}
    VERBATIM)

# The table of contract units is data beside the program, and in the program: both are the one file.
set(UNIT_TABLE_FILE ${PROJECT_SOURCE_DIR}/samples/units.ini)

# The build is set up again when the file changes, and TARGET is compiled with its bytes.
function(carry_unit_table TARGET)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${UNIT_TABLE_FILE})
    file(READ ${UNIT_TABLE_FILE} UNIT_TABLE)
    configure_file(requests/unit_table.cpp.in unit_table.cpp @ONLY)
    target_sources(${TARGET} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/unit_table.cpp)
endfunction()

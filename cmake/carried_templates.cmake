# Templates of layouts of the field are data beside the program, and in the program: both are the same files.
file(GLOB CARRIED_TEMPLATE_FILES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/templates/*.ini)

# The build is set up again when a file changes, and TARGET is compiled with their bytes.
function(carry_templates TARGET)
    set(CARRIED_TEMPLATES "")
    foreach(FILE ${CARRIED_TEMPLATE_FILES})
        set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${FILE})
        get_filename_component(NAME ${FILE} NAME_WE)
        file(READ ${FILE} BYTES HEX)
        # Compilers take no text but UTF-8, and change line ends.
        string(REGEX REPLACE "(..)" "\\\\x\\1" BYTES "${BYTES}")
        string(APPEND CARRIED_TEMPLATES "        {\"${NAME}\", \"${BYTES}\"},\n")
    endforeach()
    configure_file(requests/carried_templates_list.cpp.in carried_templates_list.cpp @ONLY)
    target_sources(${TARGET} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/carried_templates_list.cpp)
endfunction()

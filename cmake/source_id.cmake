# The sources' own identity: one number for the same sources, wherever they are built and whatever is around them.
#
# As a script: cmake -D SOURCES=FOLDER -D OUTPUT=FILE -P source_id.cmake writes the C++ source, unless it has it already.
if(CMAKE_SCRIPT_MODE_FILE)
    cmake_minimum_required(VERSION 3.25)
    file(GLOB_RECURSE FILES RELATIVE ${SOURCES} ${SOURCES}/*)
    list(SORT FILES)
    set(LIST "")
    foreach(FILE ${FILES})
        file(SHA256 ${SOURCES}/${FILE} DIGEST)
        string(APPEND LIST "${DIGEST}  ${FILE}\n")
    endforeach()
    string(SHA256 ID "${LIST}")
    string(SUBSTRING ${ID} 0 16 ID)
    file(CONFIGURE OUTPUT ${OUTPUT} CONTENT "#include \"base/source_id.h\"

namespace tradebill {

const char* const kSourceId = \"${ID}\";

}  // namespace tradebill
")
    return()
endif()

# TARGET is compiled with the number of all files below its folder, which is worked out anew when one of them changes.
set(SOURCE_ID_SCRIPT ${CMAKE_CURRENT_LIST_FILE})
function(carry_source_id TARGET)
    set(OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/source_id.cpp)
    file(GLOB_RECURSE FILES CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/*)
    add_custom_command(OUTPUT ${OUTPUT}
        COMMAND ${CMAKE_COMMAND} -D SOURCES=${CMAKE_CURRENT_SOURCE_DIR} -D OUTPUT=${OUTPUT} -P ${SOURCE_ID_SCRIPT}
        COMMAND ${CMAKE_COMMAND} -E touch ${OUTPUT}
        DEPENDS ${FILES} ${SOURCE_ID_SCRIPT} VERBATIM)
    target_sources(${TARGET} PRIVATE ${OUTPUT})
endfunction()

# The script of the standalone page is a file of its own, and in the module with the hash by which the page lets it run.
set(STANDALONE_SCRIPT_FILE ${PROJECT_SOURCE_DIR}/src/page/standalone_script.js)

# The SHA-256 of FILE in base64, which CMake has in hexadecimal digits alone: six of them are four of base64.
function(find_base64_hash FILE RESULT)
    set(DIGITS ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
    file(SHA256 ${FILE} HEX)
    string(REGEX MATCHALL "......" GROUPS ${HEX}00)
    set(TEXT "")
    foreach(GROUP IN LISTS GROUPS)
        foreach(SHIFT 18 12 6 0)
            math(EXPR DIGIT "(0x${GROUP} >> ${SHIFT}) & 63")
            string(SUBSTRING ${DIGITS} ${DIGIT} 1 DIGIT)
            string(APPEND TEXT ${DIGIT})
        endforeach()
    endforeach()
    string(REGEX REPLACE "A$" "=" TEXT ${TEXT}) # of the 32 bytes the last group has two
    set(${RESULT} ${TEXT} PARENT_SCOPE)
endfunction()

# The build is set up again when the file changes, and TARGET is compiled with its bytes.
function(carry_standalone_script TARGET)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${STANDALONE_SCRIPT_FILE})
    file(READ ${STANDALONE_SCRIPT_FILE} STANDALONE_SCRIPT)
    find_base64_hash(${STANDALONE_SCRIPT_FILE} STANDALONE_SCRIPT_HASH)
    configure_file(page/standalone_script.cpp.in standalone_script.cpp @ONLY)
    target_sources(${TARGET} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/standalone_script.cpp)
endfunction()

# Manual pages, and what shells are told to complete: the program writes them, of the tables that it parses its options by.
set(MANUAL_PAGES ${PROJECT_BINARY_DIR}/share/man/man1)
set(COMPLETIONS ${PROJECT_BINARY_DIR}/share/completions)

# They are there whenever TARGET, the program, is. A program for another system can't be asked.
function(make_manual_and_completions TARGET)
    if(CMAKE_CROSSCOMPILING)
        return()
    endif()
    set(PROGRAM $<TARGET_FILE:${TARGET}>)
    add_custom_command(TARGET ${TARGET} POST_BUILD
        COMMAND ${CMAKE_COMMAND} -E rm -rf ${MANUAL_PAGES} ${COMPLETIONS}
        COMMAND ${CMAKE_COMMAND} -E make_directory ${COMPLETIONS}/bash ${COMPLETIONS}/zsh ${COMPLETIONS}/fish
        COMMAND ${PROGRAM} .manual ${MANUAL_PAGES}
        COMMAND gzip -n -9 -k -r ${MANUAL_PAGES}
        COMMAND ${PROGRAM} completion bash > ${COMPLETIONS}/bash/tradebill
        COMMAND ${PROGRAM} completion zsh > ${COMPLETIONS}/zsh/_tradebill
        COMMAND ${PROGRAM} completion fish > ${COMPLETIONS}/fish/tradebill.fish
        COMMENT "Writing the manual pages" VERBATIM)
endfunction()

# The pages of the viewer, but for their data, get into the program. A release carries them ready made; elsewhere they are
# bundled here, which needs Node, and npm's registry once.
option(TRADEBILL_VIEWER "Carry the viewer of the second page" ON)

# As web/bundle.mjs names them.
set(VIEWER_PAGE_NAMES explore.html accounts.html)
set(VIEWER_SOURCES ${PROJECT_SOURCE_DIR}/web)
set(READY_VIEWER ${VIEWER_SOURCES}/dist)
set(VIEWER_FOLDER ${PROJECT_BINARY_DIR}/viewer)

# What is bundled depends on all of web/, and the modules on their lock.
function(bundle_viewer)
    find_program(NPM npm REQUIRED)
    find_program(NODE node REQUIRED)
    set(LOCKS package.json package-lock.json)
    list(TRANSFORM LOCKS PREPEND ${VIEWER_SOURCES}/ OUTPUT_VARIABLE LOCK_FILES)
    set(MODULES ${VIEWER_FOLDER}/modules)
    file(MAKE_DIRECTORY ${MODULES})
    add_custom_command(OUTPUT ${VIEWER_FOLDER}/modules.stamp
        COMMAND ${CMAKE_COMMAND} -E copy ${LOCK_FILES} ${MODULES}
        COMMAND ${NPM} ci --omit=dev --ignore-scripts --no-audit --no-fund --loglevel=error
        COMMAND ${CMAKE_COMMAND} -E touch ${VIEWER_FOLDER}/modules.stamp
        DEPENDS ${LOCK_FILES} WORKING_DIRECTORY ${MODULES} COMMENT "Fetching what the viewer is made of" VERBATIM)
    file(GLOB_RECURSE SOURCES CONFIGURE_DEPENDS ${VIEWER_SOURCES}/src/*)
    add_custom_command(OUTPUT ${VIEWER_FILES}
        COMMAND ${NODE} ${VIEWER_SOURCES}/bundle.mjs ${MODULES}/node_modules ${VIEWER_FOLDER}
        DEPENDS ${VIEWER_FOLDER}/modules.stamp ${VIEWER_SOURCES}/bundle.mjs ${SOURCES}
        COMMENT "Bundling the viewer" VERBATIM)
endfunction()

# True if a release has them; one without the other is none.
function(find_ready_viewer IS_READY)
    set(${IS_READY} TRUE PARENT_SCOPE)
    foreach(NAME ${VIEWER_PAGE_NAMES})
        if(NOT EXISTS ${READY_VIEWER}/${NAME})
            set(${IS_READY} FALSE PARENT_SCOPE)
        endif()
    endforeach()
endfunction()

# Sets VIEWER_PAGES, the folder with the pages, and VIEWER_FILES; they are empty files without the viewer.
function(prepare_viewer)
    find_ready_viewer(IS_READY)
    if(NOT TRADEBILL_VIEWER)
        set(PAGES ${VIEWER_FOLDER}/left_out)
    elseif(IS_READY)
        set(PAGES ${READY_VIEWER})
    else()
        set(PAGES ${VIEWER_FOLDER})
    endif()
    list(TRANSFORM VIEWER_PAGE_NAMES PREPEND ${PAGES}/ OUTPUT_VARIABLE VIEWER_FILES)
    if(NOT TRADEBILL_VIEWER)
        foreach(FILE ${VIEWER_FILES})
            file(WRITE ${FILE} "")
        endforeach()
    elseif(NOT IS_READY)
        bundle_viewer()
    endif()
    set(VIEWER_PAGES ${PAGES} PARENT_SCOPE)
    set(VIEWER_FILES ${VIEWER_FILES} PARENT_SCOPE)
    add_custom_target(viewer DEPENDS ${VIEWER_FILES})
    set_target_properties(viewer PROPERTIES PAGES_OF_VIEWER "${PAGES}" FILES_OF_VIEWER "${VIEWER_FILES}")
endfunction()

# On Windows they are resources of the program: an archive can't hold them.
function(embed_viewer_resource TARGET)
    if(WIN32 AND TRADEBILL_VIEWER)
        get_target_property(VIEWER_PAGES viewer PAGES_OF_VIEWER)
        get_target_property(VIEWER_FILES viewer FILES_OF_VIEWER)
        set(SOURCE ${VIEWER_FOLDER}/viewer.rc)
        configure_file(${PROJECT_SOURCE_DIR}/resources/viewer.rc.in ${SOURCE} @ONLY)
        set_source_files_properties(${SOURCE} PROPERTIES OBJECT_DEPENDS "${VIEWER_FILES}")
        target_sources(${TARGET} PRIVATE ${SOURCE})
        add_dependencies(${TARGET} viewer)
    endif()
endfunction()

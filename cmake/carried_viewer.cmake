# The page of the viewer, but for its data, gets into the program. A release carries it ready made; elsewhere it is bundled
# here, which needs Node, and npm's registry once.
option(TRADEBILL_VIEWER "Carry the viewer of the second page" ON)

set(VIEWER_SOURCES ${PROJECT_SOURCE_DIR}/web)
set(READY_VIEWER ${VIEWER_SOURCES}/dist/explore.html)
set(VIEWER_FOLDER ${PROJECT_BINARY_DIR}/viewer)

# Sets VIEWER_FILE; it is empty without the viewer. What is bundled depends on all of web/, and the modules on their lock.
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
    add_custom_command(OUTPUT ${VIEWER_FOLDER}/explore.html
        COMMAND ${NODE} ${VIEWER_SOURCES}/bundle.mjs ${MODULES}/node_modules ${VIEWER_FOLDER}/explore.html
        DEPENDS ${VIEWER_FOLDER}/modules.stamp ${VIEWER_SOURCES}/bundle.mjs ${SOURCES}
        COMMENT "Bundling the viewer" VERBATIM)
endfunction()

function(prepare_viewer)
    if(NOT TRADEBILL_VIEWER)
        set(FILE ${VIEWER_FOLDER}/left_out.html)
        file(WRITE ${FILE} "")
    elseif(EXISTS ${READY_VIEWER})
        set(FILE ${READY_VIEWER})
    else()
        set(FILE ${VIEWER_FOLDER}/explore.html)
        bundle_viewer()
    endif()
    set(VIEWER_FILE ${FILE} PARENT_SCOPE)
    add_custom_target(viewer DEPENDS ${FILE})
    set_property(TARGET viewer PROPERTY FILE_OF_VIEWER ${FILE})
endfunction()

# On Windows it is a resource of the program: an archive can't hold it.
function(embed_viewer_resource TARGET)
    if(WIN32 AND TRADEBILL_VIEWER)
        get_target_property(VIEWER_FILE viewer FILE_OF_VIEWER)
        set(SOURCE ${VIEWER_FOLDER}/viewer.rc)
        configure_file(${PROJECT_SOURCE_DIR}/resources/viewer.rc.in ${SOURCE} @ONLY)
        set_source_files_properties(${SOURCE} PROPERTIES OBJECT_DEPENDS ${VIEWER_FILE})
        target_sources(${TARGET} PRIVATE ${SOURCE})
        add_dependencies(${TARGET} viewer)
    endif()
endfunction()

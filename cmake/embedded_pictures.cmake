# How the pictures of resources/ get into what is built. Properties of sources hold in one directory only, so every
# directory that compiles such a source calls one of these.

# The source that takes them in knows where they lie, and is compiled again when one changes.
function(embed_pictures SOURCE)
    file(GLOB PICTURES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/*.png)
    set_source_files_properties(${SOURCE} PROPERTIES
        COMPILE_DEFINITIONS TRADEBILL_RESOURCES="${PROJECT_SOURCE_DIR}/resources"
        OBJECT_DEPENDS "${PICTURES}")
endfunction()

# On Windows they are resources of each file that is linked: a library of objects or an archive can't hold them.
function(embed_picture_resources TARGET)
    if(WIN32)
        set(SOURCE ${PROJECT_SOURCE_DIR}/resources/pictures.rc)
        target_sources(${TARGET} PRIVATE ${SOURCE})
        embed_pictures(${SOURCE})
    endif()
endfunction()

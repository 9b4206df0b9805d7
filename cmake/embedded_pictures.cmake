# The one source that takes in the pictures of resources/: it knows where they lie, and is compiled again when one changes.
# Properties of sources hold in one directory only, so every directory that compiles it calls this.
function(embed_pictures SOURCE)
    file(GLOB PICTURES CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/resources/*.png)
    set_source_files_properties(${SOURCE} PROPERTIES
        COMPILE_DEFINITIONS TRADEBILL_RESOURCES="${PROJECT_SOURCE_DIR}/resources"
        OBJECT_DEPENDS "${PICTURES}")
endfunction()

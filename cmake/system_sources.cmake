# Sources of one system are told by their place, below src/ as below tests/.
if(WIN32)
    set(OTHER_SYSTEM "(^|/)(linux|freetype)/|/libjpeg_libpng_")
else()
    set(OTHER_SYSTEM "(^|/)(windows|gdi)/|/gdiplus_")
endif()

# Sets RESULT to the files below the calling directory that match the patterns, without those of the other system.
function(find_sources RESULT)
    file(GLOB FOUND RELATIVE ${CMAKE_CURRENT_SOURCE_DIR} CONFIGURE_DEPENDS ${ARGN})
    list(FILTER FOUND EXCLUDE REGEX "${OTHER_SYSTEM}")
    set(${RESULT} ${FOUND} PARENT_SCOPE)
endfunction()

# Our presets take warnings for errors (CMAKE_COMPILE_WARNING_AS_ERROR); who packages need not.
add_compile_options(-Wall -Wextra -Wconversion -Wshadow)
# Once the standard library is precompiled, GNU 12 no longer knows it for a system header and blames std::string's own copying.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    foreach(WARNING array-bounds restrict stringop-overflow)
        add_compile_options($<$<COMPILE_LANGUAGE:CXX>:-Wno-${WARNING}>)
    endforeach()
endif()

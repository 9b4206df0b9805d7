# What has no package for the cross compiler: libraries of headers alone, which are the same for every system, and
# GoogleTest, which Debian has as sources too.

# Their folder holds the headers of Linux as well, so they get one of their own.
set(HEADER_LIBRARIES ${CMAKE_BINARY_DIR}/header_libraries)
file(MAKE_DIRECTORY ${HEADER_LIBRARIES})
foreach(LIBRARY CLI nlohmann)
    if(NOT EXISTS /usr/include/${LIBRARY})
        message(FATAL_ERROR "the headers of ${LIBRARY} are missing: tools/install_packages.sh installs them")
    endif()
    file(CREATE_LINK /usr/include/${LIBRARY} ${HEADER_LIBRARIES}/${LIBRARY} SYMBOLIC)
endforeach()
add_library(CLI11::CLI11 INTERFACE IMPORTED GLOBAL)
add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED GLOBAL)
set_target_properties(CLI11::CLI11 nlohmann_json::nlohmann_json PROPERTIES
    INTERFACE_INCLUDE_DIRECTORIES ${HEADER_LIBRARIES})

set(ZLIB_USE_STATIC_LIBS ON)  # no library of another name has to be where the program is
find_package(ZLIB REQUIRED)

if(TRADEBILL_TESTS)
    set(BUILD_GMOCK ON)
    set(INSTALL_GTEST OFF)
    block()
        set(CMAKE_COMPILE_WARNING_AS_ERROR OFF)
        add_subdirectory(/usr/src/googletest ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
    endblock()
endif()

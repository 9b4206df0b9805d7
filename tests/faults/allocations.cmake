# What the program and the module make of memory and descriptors that run short. The shim stands in for the allocator of
# one system and of no sanitizer.
if(WIN32 OR TRADEBILL_SANITIZE)
    return()
endif()

add_library(allocation_shim MODULE ${CMAKE_CURRENT_LIST_DIR}/allocation_shim.cpp)
# Its own data of a thread must need no memory.
target_compile_options(allocation_shim PRIVATE -ftls-model=initial-exec)
target_link_libraries(allocation_shim PRIVATE ${CMAKE_DL_LIBS})
add_executable(module_host ${CMAKE_CURRENT_LIST_DIR}/module_host.cpp)
target_include_directories(module_host PRIVATE ${PROJECT_SOURCE_DIR}/src)
target_link_libraries(module_host PRIVATE ${CMAKE_DL_LIBS})
add_dependencies(module_host tradebill_shared allocation_shim)

foreach(SHORTAGE allocations descriptors)
    add_test(NAME faults.${SHORTAGE} COMMAND python3 -B ${CMAKE_CURRENT_LIST_DIR}/${SHORTAGE}.py ${PROJECT_BINARY_DIR}
        ${PROJECT_SOURCE_DIR}/samples)
    set_tests_properties(faults.${SHORTAGE} PROPERTIES LABELS faults TIMEOUT 600)
endforeach()

# What is installed, and where. Components are the packages that it becomes: runtime, development, program.
include(CMakePackageConfigHelpers)
set(DATA ${CMAKE_INSTALL_DATADIR}/tradebill)
set(DOCUMENTS ${CMAKE_INSTALL_DOCDIR})

install(TARGETS tradebill_shared
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development)
install(TARGETS tradebill COMPONENT program)
install(FILES src/hosts/tradebill.h src/driver/report_request.h src/base/report_error.h
    DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tradebill COMPONENT development)
install(FILES src/report/money_record.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tradebill/report COMPONENT development)
install(FILES ${UNIT_TABLE_FILE} DESTINATION ${DATA} COMPONENT unit_table)
install(FILES ${CARRIED_TEMPLATE_FILES} DESTINATION ${DATA}/templates COMPONENT templates)

# Debian's packages have theirs in share/zsh/vendor-completions.
set(TRADEBILL_ZSH_FOLDER ${CMAKE_INSTALL_DATADIR}/zsh/site-functions CACHE STRING "Where zsh looks for completions, below the prefix")
if(NOT CMAKE_CROSSCOMPILING)
    install(DIRECTORY ${MANUAL_PAGES}/ DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT program FILES_MATCHING PATTERN *.1.gz)
    install(FILES ${COMPLETIONS}/bash/tradebill DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions COMPONENT program)
    install(FILES ${COMPLETIONS}/zsh/_tradebill DESTINATION ${TRADEBILL_ZSH_FOLDER} COMPONENT program)
    install(FILES ${COMPLETIONS}/fish/tradebill.fish DESTINATION ${CMAKE_INSTALL_DATADIR}/fish/vendor_completions.d COMPONENT program)
endif()

set(CONFIG ${CMAKE_INSTALL_LIBDIR}/cmake/tradebill)
configure_package_config_file(cmake/package/tradebillConfig.cmake.in ${CMAKE_CURRENT_BINARY_DIR}/tradebillConfig.cmake
    INSTALL_DESTINATION ${CONFIG}
    PATH_VARS CMAKE_INSTALL_LIBDIR CMAKE_INSTALL_INCLUDEDIR CMAKE_INSTALL_BINDIR)
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/tradebillConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tradebillConfig.cmake ${CMAKE_CURRENT_BINARY_DIR}/tradebillConfigVersion.cmake
    DESTINATION ${CONFIG} COMPONENT development)

if(WIN32)
    install(FILES src/driver/tradebill.def DESTINATION ${CMAKE_INSTALL_LIBDIR} RENAME TradeBill.def COMPONENT development)
else()
    install(TARGETS tradebill_static ARCHIVE COMPONENT development)
    # The prefix of "cmake --install --prefix" is known when it is installed, not before.
    install(CODE "
        set(PROJECT_VERSION ${PROJECT_VERSION})
        set(CMAKE_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})
        set(CMAKE_INSTALL_LIBDIR ${CMAKE_INSTALL_LIBDIR})
        configure_file(${CMAKE_CURRENT_SOURCE_DIR}/cmake/package/tradebill.pc.in
            ${CMAKE_CURRENT_BINARY_DIR}/tradebill.pc @ONLY)" COMPONENT development)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/tradebill.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT development)
endif()

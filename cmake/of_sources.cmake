# What src/ needs to be built, by whichever project.
include(GNUInstallDirs)
include(cmake/dependencies.cmake)
include(cmake/embedded_pictures.cmake)
include(cmake/standalone_script.cmake)
include(cmake/system_sources.cmake)
include(cmake/unit_table.cmake)
include(cmake/carried_templates.cmake)
include(cmake/version_resource.cmake)

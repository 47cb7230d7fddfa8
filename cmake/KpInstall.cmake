# SPDX-License-Identifier: MIT
# The package: the shared libraries, the headers under include/kpBaseExport, and what find_package(kpBaseExport)
# reads. A generated header that is public is installed by the folder that makes it.
include(CMakePackageConfigHelpers)

set(kp_package_libraries kpHostData kpHostUi kpBaseExportCore kpBaseExport kpFormats kpFormatsUi)
foreach(library IN LISTS kp_package_libraries)
    set_target_properties(${library} PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0 INSTALL_RPATH "$ORIGIN")
    if(NOT TARGET kpBaseExport::${library})
        add_library(kpBaseExport::${library} ALIAS ${library})
    endif()
endforeach()

install(TARGETS ${kp_package_libraries} EXPORT kpBaseExportTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
foreach(folder host core writers ogr wizard sheets spec model geo readers export formats pages)
    install(DIRECTORY ${PROJECT_SOURCE_DIR}/${folder} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/kpBaseExport
        FILES_MATCHING PATTERN "*.h" PATTERN "icons" EXCLUDE)
endforeach()

set(kp_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/kpBaseExport)
install(EXPORT kpBaseExportTargets NAMESPACE kpBaseExport:: DESTINATION ${kp_package_dir})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/kpBaseExportConfig.cmake.in
    ${PROJECT_BINARY_DIR}/kpBaseExportConfig.cmake INSTALL_DESTINATION ${kp_package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/kpBaseExportConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES
    ${PROJECT_BINARY_DIR}/kpBaseExportConfig.cmake
    ${PROJECT_BINARY_DIR}/kpBaseExportConfigVersion.cmake
    DESTINATION ${kp_package_dir})

# SPDX-License-Identifier: MIT
# The one shared library, made of the folder targets.
get_property(folders GLOBAL PROPERTY KP_FOLDERS)
add_library(kpBaseExport SHARED)
add_library(kpBaseExport::kpBaseExport ALIAS kpBaseExport)
set_target_properties(kpBaseExport PROPERTIES VERSION ${PROJECT_VERSION} SOVERSION 0)
foreach(folder IN LISTS folders)
    target_sources(kpBaseExport PRIVATE $<TARGET_OBJECTS:${folder}>)
endforeach()
target_include_directories(kpBaseExport PUBLIC
    $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<BUILD_INTERFACE:${KP_PUBLIC_FORMS}>
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kpBaseExport>)
# Whoever compiles against the library finds the public form made.
if(TARGET kpPublicForms)
    add_dependencies(kpBaseExport kpPublicForms)
endif()
target_link_libraries(kpBaseExport PRIVATE kpCommon
    PUBLIC kpHostData kpHostUi Qt5::Core Qt5::Gui Qt5::Widgets Boost::headers GDAL::GDAL)

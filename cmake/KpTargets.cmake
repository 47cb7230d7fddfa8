# SPDX-License-Identifier: MIT
# Compile rules shared by every target, and the two shapes of target that we have.

add_library(kpCommon INTERFACE)
target_compile_definitions(kpCommon INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_NO_URL_CAST_FROM_STRING)
target_compile_options(kpCommon INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual -Wconversion -Wno-sign-conversion)
if(KP_WERROR)
    target_compile_options(kpCommon INTERFACE -Werror)
endif()
if(KP_SANITIZE)
    target_compile_options(kpCommon INTERFACE -fsanitize=${KP_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=undefined)
    target_link_options(kpCommon INTERFACE -fsanitize=${KP_SANITIZE})
endif()

# kp_qt_target(name): automatic moc, uic (forms/) and rcc for a target.
function(kp_qt_target name)
    set_target_properties(${name} PROPERTIES
        AUTOMOC ON AUTOUIC ON AUTORCC ON
        AUTOUIC_SEARCH_PATHS ${PROJECT_SOURCE_DIR}/forms)
endfunction()

# kp_folder(name LIBRARY lib SOURCES ... LINK ...): one room of the house as an OBJECT target that goes into that shared
# library. Without LIBRARY it belongs to the program.
function(kp_folder name)
    cmake_parse_arguments(ARG "" "LIBRARY" "SOURCES;LINK" ${ARGN})
    add_library(${name} OBJECT ${ARG_SOURCES})
    kp_qt_target(${name})
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(${name} PRIVATE kpCommon PUBLIC ${ARG_LINK})
    if(ARG_LIBRARY)
        string(TOUPPER ${ARG_LIBRARY} macro)
        target_compile_definitions(${name} PRIVATE ${macro}_LIBRARY)
        set_property(GLOBAL APPEND PROPERTY KP_ROOMS_OF_${ARG_LIBRARY} ${name})
    endif()
endfunction()

# kp_library(name LINK ...): the shared library made of its rooms. It links nothing that its rooms may not use, and
# leaves no symbol open, so the linker proves what docs/architecture.md draws.
function(kp_library name)
    cmake_parse_arguments(ARG "" "" "LINK" ${ARGN})
    get_property(rooms GLOBAL PROPERTY KP_ROOMS_OF_${name})
    add_library(${name} SHARED)
    add_library(kpBaseExport::${name} ALIAS ${name})
    foreach(room IN LISTS rooms)
        target_sources(${name} PRIVATE $<TARGET_OBJECTS:${room}>)
    endforeach()
    target_include_directories(${name} PUBLIC
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/kpBaseExport>)
    target_link_libraries(${name} PRIVATE kpCommon PUBLIC ${ARG_LINK})
    if(NOT KP_SANITIZE)
        target_link_options(${name} PRIVATE -Wl,--no-undefined)
    endif()
endfunction()

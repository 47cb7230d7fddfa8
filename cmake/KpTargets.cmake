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

# kp_folder(name SOURCES ... LINK ...): one folder of the library as an OBJECT target.
# Every folder is part of the one shared library, so it exports with KPBASEEXPORT_LIBRARY.
function(kp_folder name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LINK" ${ARGN})
    add_library(${name} OBJECT ${ARG_SOURCES})
    kp_qt_target(${name})
    target_compile_definitions(${name} PRIVATE KPBASEEXPORT_LIBRARY)
    target_include_directories(${name} PUBLIC $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}>)
    target_link_libraries(${name} PRIVATE kpCommon PUBLIC ${ARG_LINK})
    set_property(GLOBAL APPEND PROPERTY KP_FOLDERS ${name})
endfunction()

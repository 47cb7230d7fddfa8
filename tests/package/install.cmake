# SPDX-License-Identifier: MIT
# Installs the build tree into a new folder.
file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
# A header that includes one which was left behind would compile in the source tree only.
file(GLOB_RECURSE headers ${PREFIX}/include/*.h)
foreach(header IN LISTS headers)
    file(STRINGS ${header} includes REGEX "^#include \"")
    foreach(line IN LISTS includes)
        string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" name "${line}")
        if(NOT EXISTS ${PREFIX}/include/kpBaseExport/${name})
            message(SEND_ERROR "${header}: ${name} is not installed")
        endif()
    endforeach()
endforeach()
list(LENGTH headers count)
if(count LESS 50)
    message(SEND_ERROR "only ${count} headers are installed")
endif()

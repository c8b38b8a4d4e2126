# SPDX-License-Identifier: GPL-3.0-or-later
# `marquell_header_check` compiles headers as the first include of a source of its own: a header
# that leans on what its users happen to include before it does not build. Headers that are the
# first include of their own source are checked by the build itself.

set(sources)
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
    "${PROJECT_SOURCE_DIR}/src/*.h" "${PROJECT_SOURCE_DIR}/tests/*.h")
if(NOT MARQUELL_WINDOW)
    list(FILTER headers EXCLUDE REGEX 
        "^(src|tests)/(lists/tables|shell|toolkit|window|apps/marquell(-gallery)?)/")
endif()
foreach(header IN LISTS headers)
    string(REGEX REPLACE "\\.h$" ".cpp" own "${PROJECT_SOURCE_DIR}/${header}")
    set(first)
    if(EXISTS "${own}")
        file(STRINGS "${own}" first REGEX "^#include" LIMIT_COUNT 1)
    endif()
    string(REGEX REPLACE "^src/(apps/[^/]+/)?" "" name "${header}")
    if(NOT first STREQUAL "#include \"${name}\"")
        set(source "${PROJECT_BINARY_DIR}/header-check/${header}.cpp")
        file(CONFIGURE OUTPUT "${source}"
            CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
        list(APPEND sources "${source}")
    endif()
endforeach()

add_library(marquell_header_check OBJECT EXCLUDE_FROM_ALL ${sources})
target_include_directories(marquell_header_check PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(marquell_header_check PRIVATE
    marquell_core marquell_compiler PkgConfig::FFMPEG PkgConfig::POPPLER PkgConfig::PUGIXML)
if(MARQUELL_WINDOW)
    target_link_libraries(marquell_header_check PRIVATE marquell_qt Qt6::Test)
endif()
target_compile_options(marquell_header_check PRIVATE -O0)

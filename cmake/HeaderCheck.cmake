# SPDX-License-Identifier: GPL-3.0-or-later
# `marquell_header_check` compiles every header as the first include of a source of its own: a
# header that leans on what its users happen to include before it does not build.

set(sources)
file(GLOB_RECURSE headers CONFIGURE_DEPENDS RELATIVE "${PROJECT_SOURCE_DIR}"
    "${PROJECT_SOURCE_DIR}/src/*.h" "${PROJECT_SOURCE_DIR}/tests/*.h")
foreach(header IN LISTS headers)
    set(source "${PROJECT_BINARY_DIR}/header-check/${header}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include \"${PROJECT_SOURCE_DIR}/${header}\"\n")
    list(APPEND sources "${source}")
endforeach()

add_library(marquell_header_check OBJECT EXCLUDE_FROM_ALL ${sources})
target_include_directories(marquell_header_check PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(marquell_header_check PRIVATE
    marquell_core marquell_compiler PkgConfig::FFMPEG PkgConfig::POPPLER PkgConfig::PUGIXML)
target_compile_options(marquell_header_check PRIVATE -O0)

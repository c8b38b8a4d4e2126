# SPDX-License-Identifier: GPL-3.0-or-later
# Language level, warnings and sanitizers, carried by the target `marquell_compiler`.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")

find_program(MARQUELL_CCACHE ccache)
mark_as_advanced(MARQUELL_CCACHE)
if(MARQUELL_CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${MARQUELL_CCACHE}")
endif()

add_library(marquell_compiler INTERFACE)

target_compile_options(marquell_compiler INTERFACE
    -Wall
    -Wextra
    -Wpedantic
    -Wcast-align
    -Wcast-qual
    -Wconversion
    -Wdeprecated-copy-dtor
    -Wextra-semi
    -Wformat=2
    -Wimplicit-fallthrough
    -Wmissing-declarations
    -Wnon-virtual-dtor
    -Wold-style-cast
    -Woverloaded-virtual
    -Wredundant-decls
    -Wshadow
    -Wsign-conversion
    -Wundef
    -Wunused
    -Wvla
    -Wzero-as-null-pointer-constant
)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(marquell_compiler INTERFACE
        -Wcomma-subscript
        -Wduplicated-branches
        -Wduplicated-cond
        -Wlogical-op
        -Wmismatched-tags
        -Wsuggest-override
        -Wvolatile
    )
endif()
if(MARQUELL_WERROR)
    target_compile_options(marquell_compiler INTERFACE -Werror)
endif()

if(MARQUELL_SANITIZE)
    # Every object and every link of the build, whatever target it belongs to.
    add_compile_options(-fsanitize=${MARQUELL_SANITIZE} -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${MARQUELL_SANITIZE})
    # The instrumentation hides facts from the optimiser, which then warns of what cannot happen.
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        target_compile_options(marquell_compiler INTERFACE
            -Wno-maybe-uninitialized -Wno-stringop-overflow)
    endif()
endif()

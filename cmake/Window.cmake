# SPDX-License-Identifier: GPL-3.0-or-later
# What is built on Qt: the toolkit, the shell of the program, and the programs with windows.

add_library(marquell_qt INTERFACE)
target_link_libraries(marquell_qt INTERFACE Qt6::DBus Qt6::Svg Qt6::Widgets)
target_compile_definitions(marquell_qt INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_FOREACH QT_NO_KEYWORDS)

marquell_library(marquell_toolkit
    toolkit/bricks toolkit/drawing toolkit/fragments toolkit/layout toolkit/look toolkit/tables
    toolkit/walls)
target_sources(marquell_toolkit PRIVATE src/toolkit/drawing/brand.qrc)
set_target_properties(marquell_toolkit PROPERTIES AUTORCC ON)
target_link_libraries(marquell_toolkit PUBLIC marquell_core marquell_solver marquell_qt)

marquell_library(marquell_window lists/tables shell window)
set_target_properties(marquell_window PROPERTIES AUTOMOC ON)
target_link_libraries(marquell_window PUBLIC marquell_toolkit)

marquell_sources(sources apps/marquell)
add_executable(marquell ${sources})
target_link_libraries(marquell PRIVATE marquell_window marquell_compiler)
target_compile_definitions(marquell PRIVATE MARQUELL_VERSION="${PROJECT_VERSION}")
install(TARGETS marquell RUNTIME)

marquell_sources(sources apps/marquell-gallery)
add_executable(marquell-gallery ${sources})
target_link_libraries(marquell-gallery PRIVATE marquell_window marquell_compiler)

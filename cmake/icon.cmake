# varnel_icon(TARGET): draws the program's icon for the target's resources. The drawing program runs
# while the target is built, on the building machine.

set(icon_sources
    ${PROJECT_SOURCE_DIR}/packaging/draw_icon.cpp
    ${PROJECT_SOURCE_DIR}/src/platform/win32/drawings.cpp
    ${PROJECT_SOURCE_DIR}/src/platform/win32/vector_art.cpp)
set(icon_headers
    ${PROJECT_SOURCE_DIR}/src/platform/win32/drawings.h
    ${PROJECT_SOURCE_DIR}/src/platform/win32/vector_art.h)
set(icon_folder ${PROJECT_BINARY_DIR}/icon)
file(MAKE_DIRECTORY ${icon_folder})

if(CMAKE_CROSSCOMPILING)
  find_program(VARNEL_HOST_CXX NAMES c++ g++ clang++ REQUIRED
    DOC "A C++ compiler for the building machine itself")
  set(draw_icon ${icon_folder}/draw-icon)
  add_custom_command(OUTPUT ${draw_icon}
    COMMAND ${VARNEL_HOST_CXX} -std=c++20 -O2 -I${PROJECT_SOURCE_DIR}/src ${icon_sources}
            -o ${draw_icon}
    DEPENDS ${icon_sources} ${icon_headers})
else()
  add_executable(draw-icon EXCLUDE_FROM_ALL ${icon_sources})
  target_include_directories(draw-icon PRIVATE ${PROJECT_SOURCE_DIR}/src)
  set(draw_icon draw-icon)
endif()

add_custom_command(OUTPUT ${icon_folder}/varnel.ico
  COMMAND ${draw_icon} ${icon_folder}/varnel.ico
  DEPENDS ${draw_icon})
add_custom_target(varnel-icon DEPENDS ${icon_folder}/varnel.ico)

function(varnel_icon target)
  target_include_directories(${target} PRIVATE ${icon_folder})
  add_dependencies(${target} varnel-icon)
endfunction()
